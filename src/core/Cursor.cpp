// Cursor: shown by the platform.
#include "core/Cursor.h"

#include "plugin/Platform.h"

namespace kzo::core {

void Cursor::enable() const {
    if (!isEmpty()) plugin::platform().showCursor(number_);
}

} // namespace kzo::core
