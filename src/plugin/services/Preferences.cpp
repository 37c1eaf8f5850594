// Loads, reloads and saves a store, and keeps its version and count of savings.
#include "plugin/services/Preferences.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "plugin/services/PreferenceFile.h"
#include "json/Text.h"

namespace kzo::plugin {

namespace {

using json::Node;
using json::Owned;

constexpr const char* kPrefs = "Prefs";

} // namespace

// The file

Owned Preferences::parsed(const std::string& text) {
    Owned root(json::parse(text, PersistentData::kDeepest));
    const Owned prefs(root ? root->member(kPrefs) : nullptr);
    if (!prefs || !prefs->members()) return nullptr;
    // Only with an escaped quote can a key hold one.
    if (text.find("\\\"") != std::string::npos) makeReadable(*prefs);
    // The root has this one member and nothing beside it.
    if (root->membersCount() == 1) return root;
    root->removeMember(prefs.get());
    Owned alone(Node::create(Node::Type::Object, ""));
    alone->addMember(prefs.get());
    return alone;
}

void Preferences::load(const std::string& path) {
    const PreferenceFile file = PreferenceFile::read(path);
    unreadable_ = file.state == PreferenceFile::State::Unreadable ? path : "";
    Owned root = parsed(file.text);
    if (!root) {
        root.reset(Node::create(Node::Type::Object, ""));
        root->addMember(Owned(Node::create(Node::Type::Object, kPrefs)).get());
    }
    adopt(std::move(root));
}

bool Preferences::reload(const std::string& path) {
    Owned root = parsed(PreferenceFile::read(path).text);
    if (!root) return false;
    if (path == unreadable_) unreadable_.clear();
    adopt(std::move(root));
    return true;
}

bool Preferences::save(const std::string& path) {
    if (!root_ || path == unreadable_) return false;
    const long long before = saveCount();
    setNumber(kSaveCount, before + (before < std::numeric_limits<long long>::max() ? 1 : 0));
    const std::string text = json::serialize(root_.get(), true, 0);
    if (text.size() <= kLargestPreferences && PreferenceFile::rewrite(path, text)) return true;
    setNumber(kSaveCount, before);
    return false;
}

// The store

void Preferences::adopt(Owned root) {
    Owned prefs(root->member(kPrefs));
    if (dictionary_)
        dictionary_->replace(std::move(prefs));
    else
        dictionary_ = std::make_shared<PersistentData>(std::move(prefs), core::PrefType::Preferences);
    root_ = std::move(root);
    require(Owned(Node::createInt(kSaveCount, 0)));
    require(Owned(Node::createInt(kVersionNumber, 0)));
    require(Owned(Node::createStr(kVersionString, "")));
}

/// Adds the member unless there is one of its kind.
void Preferences::require(Owned member) {
    Node& prefs = *dictionary_->node();
    const Owned present(prefs.member(member->name()));
    if (present && present->nodeType() == member->nodeType()) return;
    if (present) prefs.removeMember(present.get());
    prefs.addMember(member.get());
}

Owned Preferences::member(const char* key) const { return Owned(root_ ? dictionary_->node()->member(key) : nullptr); }

long long Preferences::number(const char* key) const {
    const Owned found = member(key);
    return found ? found->intValue() : 0;
}

void Preferences::setNumber(const char* key, long long value) {
    if (root_) require(Owned(Node::createInt(key, 0))); // a client may have taken it out
    if (const Owned found = member(key)) found->setIntValue(value);
}

int Preferences::versionNumber() const {
    return static_cast<int>(std::clamp<long long>(number(kVersionNumber), std::numeric_limits<int>::min(),
                                                  std::numeric_limits<int>::max()));
}

void Preferences::setVersionNumber(int number) { setNumber(kVersionNumber, number); }

std::string Preferences::versionString() const {
    const Owned found = member(kVersionString);
    return found ? found->stringValue() : "";
}

void Preferences::setVersionString(const std::string& text) {
    if (root_) require(Owned(Node::createStr(kVersionString, "")));
    if (const Owned found = member(kVersionString)) Codec<std::string>::store(*found, text);
}

} // namespace kzo::plugin
