// A handle on marks over the view that the plug-in draws when the host asks for them.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "core/values/BitSets.h"
#include "core/values/Callback.h"

struct AIAnnotator;

namespace kzo::plugin {
class Annotator;
}

namespace kzo::core {

/// Copies denote one annotator, which lasts until `destroy` or shut-down; then all of them are empty. Its callback runs
/// for "AI Draw", when its marks have to be drawn (see AnnotationDrawer.h), and for "AI Invalidate"; which of them it
/// is, and the rest, says the AnnotatorMessage that is being handled. Operations on an empty handle do nothing and
/// answer false, 0, an empty text or null.
class Annotator {
  public:
    /// What an annotator asks of the host, which has no names for it either; passed on as it is.
    enum class Options : std::int32_t { None = 0, First = 1, Second = 2 };

    Annotator() = default; ///< empty
    /// Active from here on. Empty when the host refuses.
    Annotator(const std::string& name, const Callback& callback);
    explicit Annotator(std::shared_ptr<plugin::Annotator> impl) : impl_(std::move(impl)) {}

    [[nodiscard]] bool isEmpty() const;
    [[nodiscard]] bool operator==(const Annotator& other) const { return impl_ == other.impl_; }
    [[nodiscard]] AIAnnotator* aiAnnotatorHandle() const;
    [[nodiscard]] std::string name() const;

    [[nodiscard]] bool active() const;
    void setActive(bool active);
    void activate() { setActive(true); }
    void deactivate() { setActive(false); }
    [[nodiscard]] Options options() const;
    void setOptions(Options options);
    [[nodiscard]] Callback* callback() const;
    void setCallback(const Callback& callback);

    void invalidate(); ///< has the host ask for its marks anew, say because what they show has changed
    void destroy();

    [[nodiscard]] plugin::Annotator* __impl() const; ///< null when empty

  private:
    std::shared_ptr<plugin::Annotator> impl_;
};

} // namespace kzo::core

template <> struct kzo::utils::IsBitSet<kzo::core::Annotator::Options> : std::true_type {};
