// Release of the suites.
#include "plugin/host/HostCall.h"

namespace kzo::plugin::host {

void releaseAll() {
    const auto release = [](auto& suite) {
        if (suite.table && basic && basic->ReleaseSuite) basic->ReleaseSuite(suite.name, suite.version);
        suite.table = nullptr;
    };
    std::apply([&](auto&... suite) { (release(suite), ...); }, suites);
}

} // namespace kzo::plugin::host
