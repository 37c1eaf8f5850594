// Values of every kind, read from and written to the node they stand for.
#include "core/services/Pref.h"

#include "core/Forward.h"
#include "plugin/services/PersistentData.h"

namespace kzo::core {

using plugin::PersistentData;
template class Handle<PersistentData>;

PrefData::PrefData(const PrefData& other, PrefType type) : Handle(other.type() == type ? other : PrefData()) {}

PrefType PrefData::type() const { return ask(impl(), &PersistentData::type); }
std::string PrefData::key() const { return ask(impl(), &PersistentData::key); }

bool PrefData::operator==(const PrefData& other) const {
    return ask(impl(), &PersistentData::node) == ask(other.impl(), &PersistentData::node);
}

// Single values

template <class Kind>
Pref<Kind>::Pref(const std::string& key, const Kind& value)
    : PrefData(std::make_shared<PersistentData>(plugin::Codec<Kind>::encode(key, value), kType)) {}

template <class Kind> Kind Pref<Kind>::value() const { return impl() ? impl()->template value<Kind>() : Kind{}; }
template <class Kind> bool Pref<Kind>::setValue(const Kind& value) { return impl() && impl()->setValue(value); }

template <class Kind> long long Pref<Kind>::intValue() const requires std::is_same_v<Kind, double> {
    return ask(ask(impl(), &PersistentData::node), &json::Node::intValue);
}

template <class Kind> bool Pref<Kind>::setIntValue(long long number) requires std::is_same_v<Kind, double> {
    return ask(ask(impl(), &PersistentData::node), &json::Node::setIntValue, number);
}

template class Pref<bool>;
template class Pref<double>;
template class Pref<std::string>;
template class Pref<ArtboardPoint>;
template class Pref<ArtboardRect>;
template class Pref<ArtColor>;
template class Pref<Color>;
template class Pref<Point>;
template class Pref<Rect>;
template class Pref<Size>;
template class Pref<Font>;
template class Pref<TransformMatrix>;
template class Pref<DashStyle>;
template class Pref<FillStyle>;
template class Pref<StrokeStyle>;
template class Pref<DashStyleMap>;
template class Pref<FillStyleMap>;
template class Pref<StrokeStyleMap>;

// Arrays

ArrayPref::ArrayPref(const std::string& key)
    : PrefData(std::make_shared<PersistentData>(json::Owned(json::Node::create(json::Node::Type::Array, key)), kType)) {
}

std::size_t ArrayPref::count() const { return ask(ask(impl(), &PersistentData::node), &json::Node::elementsCount); }

PrefData ArrayPref::fetch(std::size_t index, PrefType type) const {
    return PrefData(PersistentData::element(shared(), index, type));
}

bool ArrayPref::add(const PrefData& value) { return PersistentData::add(shared(), value.shared()); }

bool ArrayPref::remove(std::size_t index) {
    return PersistentData::remove(shared(), PersistentData::element(shared(), index, PrefType::None));
}

} // namespace kzo::core
