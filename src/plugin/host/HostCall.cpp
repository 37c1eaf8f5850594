// Acquisition and release of suites.
#include "plugin/host/HostCall.h"

#include <utility>

namespace kzo::plugin::host {

namespace {

constinit Suite* lastAcquired = nullptr;

} // namespace

bool acquire(Suite& suite) {
    const void* table = nullptr;
    if (!basic || !basic->AcquireSuite || basic->AcquireSuite(suite.name, suite.version, &table) != kNoErr)
        return false;
    if (!table) return false;
    suite.table = table;
    suite.acquiredBefore = std::exchange(lastAcquired, &suite);
    return true;
}

bool isAttached() { return basic != nullptr; }

void releaseAll() {
    while (Suite* const suite = lastAcquired) {
        if (basic && basic->ReleaseSuite) basic->ReleaseSuite(suite->name, suite->version);
        suite->table = nullptr;
        lastAcquired = std::exchange(suite->acquiredBefore, nullptr);
    }
}

} // namespace kzo::plugin::host
