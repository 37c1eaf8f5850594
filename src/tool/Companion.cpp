// The axes: the standard ones, and those of the maker's CAD plug-in, which is asked in three messages, each with a
// record of its own layout.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <map>
#include <optional>
#include <string>

#include "core/app/Illustrator.h"
#include "maker/Globals.h"
#include "tool/Plugin.h"

namespace ortho {

using kzo::core::Angle;
using kzo::core::Illustrator;
using kzo::core::ThirdPartyPlugin;

namespace {

constexpr const char* kCaller = "KZO_PLOTWISE";
constexpr const char* kNames[] = {"Kelzo Plotwise", "\tKZOPlotwise"}; // the present one, and an older one
constexpr int kTooOld = 110101;                                       // 11.1.1; later ones reply to all three
constexpr double kMostAngle = 90;                                     // degrees, as for the axes of the preferences
constexpr auto kDegrees = Angle::Units::Degrees;

/// Where every record has its sender. The host has something of its own there, which it wants back.
constexpr std::size_t kSender = 16;

/// A record in the host's memory: the head that the host fills in, then fields at fixed offsets, zeros at first.
class Record {
  public:
    explicit Record(std::size_t size) : block_(static_cast<char*>(Illustrator::instance()->alloc(size))) {
        if (block_) std::memset(block_, 0, size);
    }
    ~Record() {
        if (block_) Illustrator::instance()->free(block_);
    }
    Record(const Record&) = delete;
    Record& operator=(const Record&) = delete;

    [[nodiscard]] SPMessageData* head() const {
        return reinterpret_cast<SPMessageData*>(block_);
    } ///< null without memory

    template <class T> [[nodiscard]] T get(std::size_t offset) const {
        T value;
        std::memcpy(&value, block_ + offset, sizeof value);
        return value;
    }
    template <class T> void set(std::size_t offset, T value) { std::memcpy(block_ + offset, &value, sizeof value); }
    /// The text at `offset`, which must end before `end`; empty when its writer forgot to end it.
    [[nodiscard]] std::string text(std::size_t offset, std::size_t end) const {
        const std::size_t length = strnlen(block_ + offset, end - offset);
        return length < end - offset ? std::string(block_ + offset, length) : std::string();
    }

  private:
    char* block_;
};

/// Sends a message. True when the record holds the reply, as its byte at `okOffset` says.
bool query(const ThirdPartyPlugin& companion, const char* selector, Record& record, std::size_t okOffset) {
    if (!record.head() || !companion.started() || companion.broken()) return false;
    if (!companion.prepMessageData(*record.head())) return false;
    const auto hosts = record.get<void*>(kSender);
    record.set(kSender, kzo::core::Plugin::instance()->spPluginRef());
    int result = 0;
    const std::int32_t error = companion.message(kCaller, selector, record.head(), result);
    record.set(kSender, hosts);
    companion.cleanMessageData(*record.head());
    return error == 0 && result == 0 && record.get<std::uint8_t>(okOffset) != 0;
}

bool askVersion(const ThirdPartyPlugin& companion) {
    Record record(48);
    if (!query(companion, "PUB_MSG_GET_VERSION", record, 40)) return false;
    const int major = record.get<std::int16_t>(42);
    const int minor = record.get<std::int16_t>(44);
    const int patch = record.get<std::int16_t>(46);
    return major * 10000 + minor * 100 + patch > kTooOld;
}

// Scales and views have names; where one is missing the record has not been filled in.

bool askScale(const ThirdPartyPlugin& companion, vlCompanionData& told) {
    auto* const document = Illustrator::instance()->currentDocument();
    const auto layer = document ? document->currentLayer() : nullptr;
    Record record(1240);
    if (record.head()) record.set(40, layer ? layer->aiLayerHandle() : nullptr);
    if (!query(companion, "PUB_MSG_GET_CURR_SCALE", record, 48)) return false;
    told.scaleName = record.text(49, 1080);
    told.scale = record.get<double>(1080);
    return !told.scaleName.empty();
}

bool isAxis(double degrees) { return 0 <= degrees && degrees <= kMostAngle; }

bool askView(const ThirdPartyPlugin& companion, vlCompanionData& told) {
    Record record(1136);
    if (!query(companion, "PUB_MSG_GET_CURR_AXO_VIEW", record, 40)) return false;
    told.viewName = record.text(41, 1072);
    told.viewValues = {record.get<double>(1072), record.get<double>(1080), 0};
    told.firstAngle = record.get<double>(1088);
    told.secondAngle = record.get<double>(1096);
    told.viewFlag = record.get<std::uint8_t>(1104);
    return !told.viewName.empty() && isAxis(told.firstAngle) && isAxis(told.secondAngle);
}

std::optional<ThirdPartyPlugin> findCompanion() {
    const std::map<std::string, ThirdPartyPlugin> plugins = Illustrator::instance()->allPlugins();
    for (const char* const name : kNames)
        if (const auto known = plugins.find(name); known != plugins.end()) return known->second;
    return {};
}

} // namespace

bool Plugin::getPWdata() {
    vlCompanionData& kept = vlGlobals::instance()->companion;
    kept.found = false;
    if (!Illustrator::instance()->currentDocument()) {
        applyIsoAxes();
        return false;
    }
    const auto companion = findCompanion();
    vlCompanionData told;
    if (!companion || !askVersion(*companion) || !askScale(*companion, told) || !askView(*companion, told))
        return false;
    told.found = true;
    kept = told;
    return true;
}

void Plugin::applyPWdata() {
    vlGlobals& globals = *vlGlobals::instance();
    globals.zAxisAngle = Angle(globals.companion.firstAngle, kDegrees);
    // In these steps, not as 180 degrees less the angle: that rounds to another number.
    globals.xAxisAngle = Angle(globals.companion.secondAngle, kDegrees);
    globals.xAxisAngle -= globals.xAxisAngle * 2.0;
    globals.xAxisAngle += Angle::Pi();
    globals.verticalAxisAngle = Angle(90, kDegrees);
}

void Plugin::applyIsoAxes() {
    vlGlobals& globals = *vlGlobals::instance();
    globals.zAxisAngle = Angle(30, kDegrees);
    globals.xAxisAngle = Angle(150, kDegrees);
    globals.verticalAxisAngle = Angle(90, kDegrees);
}

} // namespace ortho
