// A handle on marks over the view that the plug-in draws when the host asks for them.
#pragma once

#include <cstdint>
#include <string>

#include "core/Handle.h"
#include "core/values/BitSets.h"
#include "core/values/Callback.h"

struct AIAnnotator;

namespace kzo::plugin {
class Annotator;
}

namespace kzo::core {

extern template class Handle<plugin::Annotator>;

/// Lasts until `destroy` or shut-down. Its callback runs for "AI Draw", when its marks have to be drawn (see
/// AnnotationDrawer.h), and for "AI Invalidate"; which of them it is, and the rest, says the AnnotatorMessage that is
/// being handled. Operations on an empty handle do nothing and return false, 0, an empty text or null.
class Annotator : public Handle<plugin::Annotator> {
  public:
    /// Option bits without a meaning of their own; the host stores and returns them.
    enum class Options : std::int32_t { None = 0, First = 1, Second = 2 };

    Annotator() = default; ///< empty
    using Handle::Handle;
    /// Active from here on. Empty when the host refuses.
    Annotator(const std::string& name, const Callback& callback);

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
};

} // namespace kzo::core

template <> struct kzo::utils::IsBitSet<kzo::core::Annotator::Options> : std::true_type {};
