// Properties by the element's own attributes, its style and style sheets, else by what it is in.
#include "svg/ElementLook.h"

#include <algorithm>
#include <iterator>
#include <optional>

#include "svg/Surroundings.h"
#include "svg/Values.h"

namespace easel::svg {

ElementLook::ElementLook(const model::Document& document, const model::Node& art)
    : source_(dynamic_cast<const Source*>(document.origin.get())) {
    const std::uint32_t origin = art.copied() ? art.copied()->origin : art.origin();
    if (source_ && origin != 0) element_ = &source_->elements[origin - 1];
}

std::string ElementLook::get(Name name) const {
    if (!element_) return std::string(initialValue(name));
    std::string own = Surroundings(*source_).says(*element_, textOf(name));
    if (!own.empty() && own != "inherit") return own;
    const std::string_view inherited = source_->containers[element_->container].inherits(name);
    return std::string(inherited.empty() ? initialValue(name) : inherited);
}

double ElementLook::opacity(Name name) const {
    const std::string text = get(name);
    Scanner scanner(text);
    const std::optional<double> value = scanner.number();
    return value ? std::clamp(scanner.take('%') ? *value / 100 : *value, 0.0, 1.0) : 1;
}

bool ElementLook::hasMarkers() const {
    if (element_ && !Surroundings(*source_).says(*element_, "marker").empty()) return true;
    const Name all[] = {Name::MarkerStart, Name::MarkerMid, Name::MarkerEnd};
    return std::any_of(std::begin(all), std::end(all), [&](Name name) { return get(name) != "none"; });
}

} // namespace easel::svg
