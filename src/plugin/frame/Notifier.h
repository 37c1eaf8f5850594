// Subscriptions to events of the host, and the registry that finds them when the host tells of one.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/values/Callback.h"

struct AINotifier;
struct SPPlugin;

namespace kzo::plugin {

struct NotifyMessage;

/// One subscription. Without a handle: the host refused, or it has ended.
class Notifier {
  public:
    Notifier(SPPlugin* plugin, const std::string& name, std::string_view type, const core::CallbackSlot& callback);

    [[nodiscard]] AINotifier* handle() const { return handle_; }
    [[nodiscard]] const std::string& name() const { return name_; }
    [[nodiscard]] const std::string& type() const { return type_; }
    [[nodiscard]] core::CallbackSlot& callback() { return callback_; }
    void destroy();

  private:
    AINotifier* handle_ = nullptr;
    std::string name_;
    std::string type_;
    core::CallbackSlot callback_;
};

class NotifierRegistry {
  public:
    void add(const std::shared_ptr<Notifier>& notifier) { notifiers_.push_back(notifier); }
    void remove(const Notifier& notifier);
    void clear(); ///< ends all subscriptions
    [[nodiscard]] std::vector<std::shared_ptr<Notifier>> ofType(std::string_view type) const;

    /// Runs the callback of the subscription that the message is for. False when there is none.
    bool notify(const NotifyMessage& message) const;

  private:
    [[nodiscard]] std::shared_ptr<Notifier> find(AINotifier* handle) const;

    std::vector<std::shared_ptr<Notifier>> notifiers_;
};

} // namespace kzo::plugin
