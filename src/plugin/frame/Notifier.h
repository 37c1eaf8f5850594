// Subscriptions to events of the host: the calls behind core::Notifier.
#pragma once

#include <string>
#include <string_view>

#include "core/values/Callback.h"
#include "plugin/host/Object.h"

struct AINotifier;
struct SPPlugin;

namespace kzo::plugin {

class Notifier : public host::Object<AINotifier> {
  public:
    Notifier(SPPlugin* plugin, const std::string& name, std::string_view type, const core::CallbackSlot& callback);

    [[nodiscard]] const std::string& name() const { return name_; }
    [[nodiscard]] const std::string& type() const { return type_; }
    [[nodiscard]] core::CallbackSlot& callback() { return callback_; }
    void destroy();

  private:
    std::string name_;
    std::string type_;
    core::CallbackSlot callback_;
};

} // namespace kzo::plugin
