// All tables in one go, by the list that the tables keep of themselves.
#include "suites/Suites.h"

namespace easel::session {

Tables::Tables() {
    suites::fill(basic);
    each([](auto& suite) { suites::fill(suite.table); });
}

} // namespace easel::session
