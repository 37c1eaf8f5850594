// Forwards to plugin::Dictionary.
#include "core/document/Dictionary.h"

#include "core/Forward.h"
#include "core/document/Art.h"
#include "plugin/document/Art.h"
#include "plugin/document/Dictionary.h"

namespace kzo::core {

namespace entries = plugin::dictionary;

Dictionary::Dictionary(const Art& art) : art_(art) {}

bool Dictionary::isEmpty() const { return art_ && art_->isEmpty(); }
ArtObject* Dictionary::handle() const { return art_ ? ask(art_->impl(), &plugin::Art::handle) : nullptr; }

template <class Value> bool Dictionary::read(const std::string& key, Value& value) const {
    return !isEmpty() && entries::read(handle(), key, value);
}
template <class Value> bool Dictionary::write(const std::string& key, const Value& value) {
    return !isEmpty() && entries::write(handle(), key, value);
}

std::vector<std::string> Dictionary::keys() const {
    return isEmpty() ? std::vector<std::string>() : entries::keys(handle());
}
bool Dictionary::remove(const std::string& key) { return !isEmpty() && entries::remove(handle(), key); }

bool Dictionary::getBool(const std::string& key, bool& value) const { return read(key, value); }
bool Dictionary::getInt(const std::string& key, std::int32_t& value) const { return read(key, value); }
bool Dictionary::getFloat(const std::string& key, double& value) const { return read(key, value); }
bool Dictionary::getString(const std::string& key, std::string& value) const { return read(key, value); }

bool Dictionary::setBool(const std::string& key, bool value) { return write(key, value); }
bool Dictionary::setInt(const std::string& key, std::int32_t value) { return write(key, value); }
bool Dictionary::setFloat(const std::string& key, double value) { return write(key, value); }
bool Dictionary::setString(const std::string& key, const std::string& value) { return write(key, value); }

} // namespace kzo::core
