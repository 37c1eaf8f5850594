#include "plugin/document/Dictionary.h"

#include "hostapi/AIDictionarySuite.h"
#include "plugin/host/HostCall.h"

namespace kzo::plugin::dictionary {

namespace {

using Suite = AIDictionarySuite;
using Text = const std::string&;

template <auto Entry, class Ours> bool readAs(ArtObject* art, Text key, Ours& value) {
    typename host::AnswerOf<decltype(Entry)>::type held{};
    if (!host::call<Entry>(art, key, &held)) return false;
    value = host::fromHost<Ours>(held);
    return true;
}

} // namespace

std::vector<std::string> keys(ArtObject* art) {
    std::vector<std::string> found;
    const int count = host::get<&Suite::CountEntries>(art);
    for (int i = 0; i < count; ++i) {
        std::string key = host::get<&Suite::GetNthKey>(art, i);
        if (!key.empty()) found.push_back(std::move(key));
    }
    return found;
}

bool remove(ArtObject* art, Text key) { return host::call<&Suite::DeleteEntry>(art, key); }

bool read(ArtObject* art, Text key, bool& value) { return readAs<&Suite::GetBooleanEntry>(art, key, value); }
bool read(ArtObject* art, Text key, std::int32_t& value) { return readAs<&Suite::GetIntegerEntry>(art, key, value); }
bool read(ArtObject* art, Text key, double& value) { return readAs<&Suite::GetRealEntry>(art, key, value); }
bool read(ArtObject* art, Text key, std::string& value) { return readAs<&Suite::GetStringEntry>(art, key, value); }

bool write(ArtObject* art, Text key, bool value) { return host::call<&Suite::SetBooleanEntry>(art, key, value); }
bool write(ArtObject* art, Text key, std::int32_t value) {
    return host::call<&Suite::SetIntegerEntry>(art, key, value);
}
bool write(ArtObject* art, Text key, double value) { return host::call<&Suite::SetRealEntry>(art, key, value); }
bool write(ArtObject* art, Text key, Text value) { return host::call<&Suite::SetStringEntry>(art, key, value); }

} // namespace kzo::plugin::dictionary
