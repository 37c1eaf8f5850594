// Addresses of the maker's site, composed.
#include "maker/Web.h"

#include <cstdlib>
#include <regex>

#include "maker/Product.h"

namespace vl::web {

std::string address(const std::string& path) {
    static const std::regex kThisMachine("https?://(127\\.0\\.0\\.1|localhost)(:[0-9]{1,5})?");
    const char* const other = std::getenv("VELLORAN_WEB");
    return (other && std::regex_match(other, kThisMachine) ? other : kHost) + path;
}

std::string homePage() { return address("/"); }
std::string updateQuery() { return address(std::string("/check/currentversion.php?p=") + product::kCode); }
std::string downloadsPage() { return address("/downloads/plugins"); }

std::string downloadAddress(int hostVersion) {
    constexpr std::size_t kShortest = 9; // anything less is no address
    const std::string file = std::string(product::kName) + product::kMajorVersion + "-" + std::to_string(hostVersion);
    const std::string found = address("/software/") + "plugins/mac/" + file + "Mac.zip";
    return found.size() < kShortest ? downloadsPage() : found;
}

} // namespace vl::web
