// Entries of the dictionary of art or of the document.
#include "plugin/document/Dictionary.h"

#include "hostapi/AIDictionarySuite.h"
#include "plugin/host/HostCall.h"

namespace kzo::plugin::dictionary {

namespace {

using Suite = AIDictionarySuite;
using Text = const std::string&;

} // namespace

std::vector<std::string> keys(ArtObject* art) { return host::all<&Suite::CountEntries, &Suite::GetNthKey>(art); }

bool remove(ArtObject* art, Text key) { return host::call<&Suite::DeleteEntry>(art, key); }

bool read(ArtObject* art, Text key, bool& value) { return host::read<&Suite::GetBooleanEntry>(value, art, key); }
bool read(ArtObject* art, Text key, std::int32_t& value) {
    return host::read<&Suite::GetIntegerEntry>(value, art, key);
}
bool read(ArtObject* art, Text key, double& value) { return host::read<&Suite::GetRealEntry>(value, art, key); }
bool read(ArtObject* art, Text key, std::string& value) { return host::read<&Suite::GetStringEntry>(value, art, key); }

bool write(ArtObject* art, Text key, bool value) { return host::call<&Suite::SetBooleanEntry>(art, key, value); }
bool write(ArtObject* art, Text key, std::int32_t value) {
    return host::call<&Suite::SetIntegerEntry>(art, key, value);
}
bool write(ArtObject* art, Text key, double value) { return host::call<&Suite::SetRealEntry>(art, key, value); }
bool write(ArtObject* art, Text key, Text value) { return host::call<&Suite::SetStringEntry>(art, key, value); }

} // namespace kzo::plugin::dictionary
