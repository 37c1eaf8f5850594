// The dictionary suite.
#include "hostapi/AIDictionarySuite.h"

#include <cmath>

#include "suites/Enter.h"
#include "suites/Shared.h"

namespace easel::suites {

namespace {

using model::Dictionary;
using Text = std::string_view;

/// Art, or the document in front by its root.
struct Holder : Art {
    [[nodiscard]] const Dictionary& entries() const { return node.extras().dictionary; }
};

} // namespace

template <> struct Argument<Holder> {
    static Holder from(AIArtHandle handle) {
        if (handle) return {resolveArt(handle)};
        model::Document& document = currentDocument();
        return {{document, document.root()}};
    }
};

namespace {

const char* getNthKey(Holder holder, std::int32_t index) {
    require(index >= 0 && static_cast<std::size_t>(index) < holder.entries().size());
    return std::next(holder.entries().begin(), index)->first.c_str();
}

template <class T> const T& get(Holder holder, Text key) {
    const auto found = holder.entries().find(std::string(key));
    const T* const held = found == holder.entries().end() ? nullptr : std::get_if<T>(&found->second);
    require(held, kPreferenceNotFoundErr);
    return *held;
}

AIReal getReal(Holder holder, Text key) {
    const auto found = holder.entries().find(std::string(key));
    const bool isWhole = found != holder.entries().end() && std::holds_alternative<std::int32_t>(found->second);
    return isWhole ? get<std::int32_t>(holder, key) : get<double>(holder, key);
}

void set(Holder holder, Text key, Dictionary::mapped_type value) {
    const std::string name(key);
    require(!name.empty() && isPlainText(name.c_str()));
    changeExtras(holder, [&](model::Extras& extras) { extras.dictionary.insert_or_assign(name, std::move(value)); });
}

void setReal(Holder holder, Text key, AIReal value) {
    require(std::isfinite(value));
    set(holder, key, value);
}

void setString(Holder holder, Text key, Text value) {
    require(isPlainText(value.data()));
    set(holder, key, std::string(value));
}

void removeEntry(Holder holder, Text key) {
    const std::string name(key);
    require(holder.entries().count(name) == 1, kPreferenceNotFoundErr);
    changeExtras(holder, [&](model::Extras& extras) { extras.dictionary.erase(name); });
}

} // namespace

template <> void fill(AIDictionarySuite& suite) {
    enter<&AIDictionarySuite::CountEntries>(suite, [](Holder holder) { return holder.entries().size(); });
    enter<&AIDictionarySuite::GetNthKey, getNthKey>(suite);
    enter<&AIDictionarySuite::DeleteEntry, removeEntry>(suite);
    enter<&AIDictionarySuite::GetBooleanEntry, get<bool>>(suite);
    enter<&AIDictionarySuite::GetIntegerEntry, get<std::int32_t>>(suite);
    enter<&AIDictionarySuite::GetRealEntry, getReal>(suite);
    enter<&AIDictionarySuite::GetStringEntry, get<std::string>>(suite);
    enter<&AIDictionarySuite::SetBooleanEntry>(suite,
                                               [](Holder holder, Text key, bool value) { set(holder, key, value); });
    enter<&AIDictionarySuite::SetIntegerEntry>(
        suite, [](Holder holder, Text key, std::int32_t value) { set(holder, key, value); });
    enter<&AIDictionarySuite::SetRealEntry, setReal>(suite);
    enter<&AIDictionarySuite::SetStringEntry, setString>(suite);
}

} // namespace easel::suites
