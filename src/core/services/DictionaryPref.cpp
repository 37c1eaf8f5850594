// Forwards to plugin::PersistentData, and makes what is missing.
#include "core/services/DictionaryPref.h"

#include "core/Forward.h"
#include "plugin/services/PersistentData.h"

namespace kzo::core {

using plugin::PersistentData;

DictionaryPref::DictionaryPref(const std::string& key)
    : PrefData(
          std::make_shared<PersistentData>(json::Owned(json::Node::create(json::Node::Type::Object, key)), kType)) {}

std::size_t DictionaryPref::count() const { return ask(ask(impl(), &PersistentData::node), &json::Node::membersCount); }
bool DictionaryPref::addPref(const PrefData& pref) { return PersistentData::add(shared(), pref.shared()); }
bool DictionaryPref::removePref(const PrefData& pref) { return PersistentData::remove(shared(), pref.shared()); }

PrefData DictionaryPref::fetch(const std::string& key, PrefType type) const {
    return PrefData(PersistentData::member(shared(), key, type));
}

bool DictionaryPref::replaceBy(const PrefData& made) {
    const PrefData present = fetch(made.key(), PrefType::None);
    if (!present.isEmpty()) removePref(present);
    if (addPref(made)) return true;
    if (!present.isEmpty()) addPref(present);
    return false;
}

bool DictionaryPref::getOrCreateIntPref(const std::string& key, long long value, NumberPref& out) {
    if (getNumberPref(key, out)) return true;
    NumberPref made(key, 0);
    made.setIntValue(value);
    return put(made, out);
}

bool DictionaryPref::getOrCreateArrayPref(const std::string& key, const ArrayPref& value, ArrayPref& out) {
    return getArrayPref(key, out) || put(ArrayPref(PrefData(PersistentData::copied(value.shared(), key))), out);
}

bool DictionaryPref::getOrCreateDictPref(const std::string& key, const DictionaryPref& value, DictionaryPref& out) {
    return getDictPref(key, out) || put(DictionaryPref(PrefData(PersistentData::copied(value.shared(), key))), out);
}

} // namespace kzo::core
