// Forwards to plugin::Preferences.
#include "core/services/Preferences.h"

#include "core/Forward.h"
#include "plugin/services/Preferences.h"

namespace kzo::core {

Preferences::Preferences(const std::shared_ptr<plugin::Preferences>& store)
    : DictionaryPref(store->dictionary()), store_(store) {}

bool Preferences::load(const std::string& path, Preferences& out) {
    const auto store = std::make_shared<plugin::Preferences>();
    store->load(path);
    out = Preferences(store);
    return true;
}

bool Preferences::reload(const std::string& path) { return ask(store_, &plugin::Preferences::reload, path); }
bool Preferences::save(const std::string& path) { return ask(store_, &plugin::Preferences::save, path); }
bool Preferences::unreadable() const { return ask(store_, &plugin::Preferences::unreadable); }

long long Preferences::saveCount() const { return ask(store_, &plugin::Preferences::saveCount); }
int Preferences::versionNumber() const { return ask(store_, &plugin::Preferences::versionNumber); }
void Preferences::setVersionNumber(int number) { ask(store_, &plugin::Preferences::setVersionNumber, number); }
std::string Preferences::versionString() const { return ask(store_, &plugin::Preferences::versionString); }
void Preferences::setVersionString(const std::string& text) {
    ask(store_, &plugin::Preferences::setVersionString, text);
}

} // namespace kzo::core
