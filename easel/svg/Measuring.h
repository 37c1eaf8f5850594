// Where art lies that is not edited, as the renderer's process tells it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "model/Document.h"
#include "svg/Source.h"

namespace easel::svg {

/// Gives the art its bounds, as it was read. What the renderer does not draw, or has no time for, keeps those it had;
/// one line says so. `document` is the source's.
void measure(model::Document& document, const Source& source, const std::vector<Unmeasured>& art);

/// Gives texts whose bounds have been guessed (see Document::takeGuessed) those that they have where no style
/// sheet makes them look otherwise. Where the renderer cannot tell, the guess stays.
void measureTexts(model::Document& document, const std::vector<model::NodeId>& guessed);

/// Where elements of a drawing lie on a page of this size, by their ids; for want of time not all of them. Throws
/// RenderError.
[[nodiscard]] std::vector<model::Box> boxesIn(std::string_view drawing, model::Point page,
                                              std::vector<std::string> ids);

} // namespace easel::svg
