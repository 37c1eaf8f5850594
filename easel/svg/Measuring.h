// Where art lies that is not edited, as the renderer's process tells it.
#pragma once

#include "model/Document.h"
#include "svg/Source.h"

namespace easel::svg {

/// Gives the art its bounds, as it was read. What the renderer does not draw, or has no time for, keeps those it had;
/// one line says so. `document` is the source's.
void measure(model::Document& document, const Source& source, const std::vector<Unmeasured>& art);

} // namespace easel::svg
