// Marks over the view that a client draws when the host asks for them, and the registry that finds who is asked. It
// also knows when what is on the screen has moved from under the marks.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "core/values/Callback.h"
#include "plugin/frame/Messages.h"
#include "plugin/values/ArtboardRect.h"

struct AIAnnotator;
struct AITool;
struct SPPlugin;

namespace kzo::plugin {

/// Without a handle (refused, or destroyed) every query answers its neutral value.
class Annotator {
  public:
    Annotator(SPPlugin* plugin, const std::string& name, const core::CallbackSlot& callback);

    [[nodiscard]] AIAnnotator* handle() const { return handle_; }
    [[nodiscard]] bool registered() const { return registered_; }
    void setRegistered(bool registered) { registered_ = registered; } ///< one that is not is no longer run
    [[nodiscard]] core::CallbackSlot& callback() { return callback_; }
    [[nodiscard]] std::string name() const;
    [[nodiscard]] bool active() const;
    void setActive(bool active);
    [[nodiscard]] std::int32_t options() const; ///< the host's bits, as they are
    void setOptions(std::int32_t options);
    void invalidate() const; ///< has the marks drawn anew
    void destroy();

  private:
    AIAnnotator* handle_;
    core::CallbackSlot callback_;
    bool registered_ = true;
};

/// Owns every annotator, together with the handles on it, until it is destroyed. While it is empty it asks nothing of
/// the host.
class AnnotatorRegistry {
  public:
    void add(const std::shared_ptr<Annotator>& annotator) { annotators_.push_back(annotator); }
    void remove(const Annotator& annotator);
    void clear(); ///< destroys all annotators

    [[nodiscard]] std::shared_ptr<Annotator> find(AIAnnotator* handle) const; ///< null for one that is not known
    /// Runs the annotator's callback. False when the annotator is unknown or not registered.
    bool run(AIAnnotator* handle) const;

    /// Makes the host have all marks drawn anew.
    void invalidateAll() const;
    /// Invalidates when the current view's bounds, the tool or its cursor are elsewhere than they were when that last
    /// happened. `message` is null when the message being handled is not a tool's.
    void follow(const ToolMessage* message);

  private:
    void followView();
    void followTool(const ToolMessage& message);

    std::vector<std::shared_ptr<Annotator>> annotators_;
    ArtboardRect viewBounds_;
    AITool* tool_ = nullptr;
    ArtboardPoint cursor_;
};

} // namespace kzo::plugin
