// A receiver of callbacks that does what a test wants, and counts.
#pragma once

#include <functional>

#include "core/values/Callback.h"

namespace desk {

struct Receiver {
    std::function<void()> work;
    int runs = 0;
    void run() {
        ++runs;
        if (work) work();
    }
    [[nodiscard]] kzo::core::__Callback<Receiver> callback() { return {this, &Receiver::run}; }
};

} // namespace desk
