#include "maker/Web.h"

#include <cstdlib>
#include <regex>

namespace vl::web {

std::string address(const std::string& path) {
    static const std::regex kThisMachine("https?://(127\\.0\\.0\\.1|localhost)(:[0-9]{1,5})?");
    const char* const other = std::getenv("VELLORAN_WEB");
    return (other && std::regex_match(other, kThisMachine) ? other : kHost) + path;
}

} // namespace vl::web
