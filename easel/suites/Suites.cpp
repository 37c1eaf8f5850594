// All tables in one go, by the list that the tables keep of themselves.
#include "suites/Suites.h"

namespace easel::suites {

void fill(session::Tables& tables) {
    fill(tables.basic);
    tables.each([](auto& suite) { fill(suite.table); });
}

} // namespace easel::suites
