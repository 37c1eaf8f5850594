// The form of a report.
#include "session/base/Reports.h"

#include <cstdio>

namespace easel::session {

void Reports::add(Blame blame, const std::string& text) {
    static constexpr const char* kNames[] = {"host", "plug-in", "user data"};
    lines_.push_back(std::string(kNames[static_cast<int>(blame)]) + ": " + text);
    std::fprintf(stderr, "easel: %s\n", lines_.back().c_str());
}

} // namespace easel::session
