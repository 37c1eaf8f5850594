// The variables, one by one.
#include "session/app/Environment.h"

#include <cstdlib>
#include <string_view>

#include "svg/EnvironmentLimit.h"

namespace easel::session {

void useEnvironment(Session& session) {
    constexpr unsigned long kUsual = model::Journal::kHistoryBytes >> 20;
    session.documents.setHistoryLimit(svg::limitFromEnvironment("EASEL_UNDO_MEGABYTES", kUsual) << 20);
    const char* const trace = std::getenv("EASEL_TRACE");
    session.messenger.trace = trace && std::string_view(trace) == "1";
}

} // namespace easel::session
