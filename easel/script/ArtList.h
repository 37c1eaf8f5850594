// Arguments that are pieces of art.
#pragma once

#include <string_view>
#include <vector>

#include "script/Calls.h"

namespace easel::script {

/// One piece of art or a list of them.
struct ArtList {
    std::vector<Art> items;
};
void read(const Value& value, ArtList& slot);

/// Throws BadArgument.
void mustBelong(const Object& object, const Document& document, std::string_view argument);

[[nodiscard]] std::vector<Object> objects(const Document& document, const std::vector<model::Node*>& nodes);
/// The art of a list, each piece once, without what lies in a group that is listed as well.
[[nodiscard]] std::vector<model::Node*> outermost(const ArtList& list, const Document& document);
/// Paints every path of the art as the record says.
void restyle(model::Document& document, model::Node& art, const StyleRecord& says);

} // namespace easel::script
