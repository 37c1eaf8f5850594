// Asks once a version of the host, and remembers what was chosen.
#include "maker/HostGate.h"

#include "core/app/Illustrator.h"
#include "core/dialogs/Alerts.h"
#include "maker/Numbers.h"
#include "maker/Product.h"
#include "maker/Web.h"

namespace vl {

namespace {

namespace alerts = kzo::core::alerts;

constexpr const char* kKey = "launchThisVersion";
constexpr std::int32_t kNeverAsked = 0;
constexpr std::int32_t kLoad = 1;
constexpr std::int32_t kDoNotLoad = 2;

std::string question(const std::string& plugin) {
    const std::string text =
        "This $PluginName plugin was built for $targetVer and is not recommended for this version. "
        "You can download the correct version at\n\n" +
        web::downloadsPage() + "\n\nWould you like to load this plugin anyway?";
    return strReplace(strReplace(text, "$PluginName", plugin), "$targetVer", product::kHostName);
}

} // namespace

bool mayLoad(const std::string& plugin) {
    auto& host = *kzo::core::Illustrator::instance();
    if (host.majorVersion() == product::kHostVersion) return true;
    const std::string section = "Vl" + plugin + "-" + formatNumber(product::kHostVersion, -1);
    std::int32_t choice = kNeverAsked;
    host.preferences()->getIntPref(section, kKey, choice);
    if (choice == kNeverAsked) {
        const auto response = alerts::confirm(question(plugin), "Yes, load it", "No, don't load it");
        choice = response == alerts::Response::First ? kLoad : kDoNotLoad;
        if (alerts::asked()) host.preferences()->setIntPref(section, kKey, choice);
    }
    return choice != kDoNotLoad;
}

} // namespace vl
