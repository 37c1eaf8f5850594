// Filling of all tables by their list.
#include "suites/Tables.h"

#include <utility>

#include "suites/Enter.h"

namespace easel::suites {

Tables::Tables() {
    fill(basicSuite);
    each([](auto& suite) { fill(suite.table); });
}

std::vector<std::string> Tables::takeUnreleased() {
    std::vector<std::string> names;
    each([&](auto& suite) {
        if (std::exchange(suite.acquired, 0) != 0) names.emplace_back(suite.name);
    });
    return names;
}

} // namespace easel::suites

namespace easel::session {

std::unique_ptr<Suites> makeSuites() { return std::make_unique<suites::Tables>(); }

} // namespace easel::session
