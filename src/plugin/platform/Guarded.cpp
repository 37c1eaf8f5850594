// Catches what work throws; apart from the windows, whose sources know exceptions of another language too.
#include "plugin/platform/Guarded.h"

#include <exception>

namespace kzo::plugin {

void guardedFromLoop(const std::function<void()>& work) {
    try {
        work();
    } catch (const std::exception& error) {
        if (thrownInLoop) thrownInLoop(error.what());
    } catch (...) {
        if (thrownInLoop) thrownInLoop("no std::exception");
    }
}

} // namespace kzo::plugin
