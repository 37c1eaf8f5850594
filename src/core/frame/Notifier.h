// A subscription to an event of the host.
#pragma once

#include <string>

#include "core/Handle.h"
#include "core/frame/NotifierType.h"
#include "core/values/Callback.h"

struct AINotifier;

namespace kzo::plugin {
class Notifier;
}

namespace kzo::core {

extern template class Handle<plugin::Notifier>;

/// Lasts until `destroy` or shut-down. Empty handles return None, an empty text or null.
class Notifier : public Handle<plugin::Notifier> {
  public:
    Notifier() = default; ///< empty
    using Handle::Handle;
    /// Empty when the host refuses, or for None.
    Notifier(const std::string& name, NotifierType type, const Callback& callback);

    [[nodiscard]] AINotifier* aiNotifierHandle() const;
    [[nodiscard]] std::string name() const;
    [[nodiscard]] NotifierType type() const;
    [[nodiscard]] Callback* callback() const;
    void setCallback(const Callback& callback);
    void destroy();
};

} // namespace kzo::core
