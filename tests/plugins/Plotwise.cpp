// A stand-in for the companion CAD plug-in: a plug-in without the framework, that knows nothing of how it is asked but
// the records' layouts. Built as two bundles, one under an older name.
#include "plugins/Plotwise.h"

#include <cstring>

#include "hostapi/SPPluginsSuite.h"

namespace {

#ifdef PLOTWISE_OLD_NAME
constexpr const char* kName = "\tKZOPlotwise";
#else
constexpr const char* kName = "Kelzo Plotwise";
#endif

plotwise::Told* told = nullptr;

template <class T> void put(void* record, std::size_t offset, T value) {
    std::memcpy(static_cast<char*>(record) + offset, &value, sizeof value);
}

void putName(void* record, std::size_t offset, std::size_t end, const std::string& name, bool ends) {
    char* const field = static_cast<char*>(record) + offset;
    if (!ends) std::memset(field, 'x', end - offset);
    if (ends) std::memcpy(field, name.c_str(), name.size() + 1);
}

void* at(const void* record, std::size_t offset) {
    void* value = nullptr;
    std::memcpy(&value, static_cast<const char*>(record) + offset, sizeof value);
    return value;
}

void answerVersion(void* record, unsigned char ok) {
    put(record, 40, ok);
    for (std::size_t i = 0; i < 3; ++i) put(record, 42 + 2 * i, static_cast<std::int16_t>(told->version[i]));
}

void answerScale(void* record, unsigned char ok) {
    told->layer = at(record, 40);
    put(record, 48, ok);
    putName(record, 49, 1080, told->scaleName, told->endsScaleName);
    put(record, 1080, told->scale);
}

void answerView(void* record, unsigned char ok) {
    put(record, 40, ok);
    putName(record, 41, 1072, told->viewName, told->endsViewName);
    for (std::size_t i = 0; i < 2; ++i) {
        put(record, 1072 + 8 * i, told->viewValues[i]);
        put(record, 1088 + 8 * i, told->angles[i]);
    }
    put(record, 1104, told->viewFlag);
}

const struct {
    const char* selector;
    void (*answer)(void*, unsigned char);
} kAnswers[] = {{"PUB_MSG_GET_VERSION", answerVersion},
                {"PUB_MSG_GET_CURR_SCALE", answerScale},
                {"PUB_MSG_GET_CURR_AXO_VIEW", answerView}};

SPErr answer(const std::string& selector, void* record) {
    told->heard.push_back(selector);
    told->sender = at(record, 16);
    for (int i = 0; i < 3; ++i) {
        if (selector != kAnswers[i].selector) continue;
        told->before(i + 1);
        kAnswers[i].answer(record, told->notOkAt == i + 1 ? 0 : 1);
        return told->errorAt == i + 1 ? kRefusedErr : kNoErr;
    }
    return kBadParameterErr;
}

void takeName(const SPMessageData& head) {
    const void* table = nullptr;
    if (head.basic->AcquireSuite(kSPPluginsSuite, kSPPluginsSuiteVersion, &table) != kNoErr) return;
    static_cast<const SPPluginsSuite*>(table)->SetPluginName(head.self, kName);
    head.basic->ReleaseSuite(kSPPluginsSuite, kSPPluginsSuiteVersion);
}

} // namespace

extern "C" __attribute__((visibility("default"))) SPErr PluginMain(const char* caller, const char* selector,
                                                                   void* message) {
    const std::string from = caller;
    if (from == kSPInterfaceCaller && std::string(selector) == kSPInterfaceStartupSelector)
        takeName(*static_cast<SPMessageData*>(message));
    if (from == plotwise::caller) told = static_cast<plotwise::TellMessage*>(message)->told;
    return from == "KZO_PLOTWISE" && told ? answer(selector, message) : SPErr{kNoErr};
}
