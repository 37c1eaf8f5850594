// What keys do to the document in front.
#pragma once

#include "model/Document.h"

namespace easel::session {

/// Removes the selected art as one step, but nothing that is locked or hidden. Of a path with just some anchors
/// selected these go, with the segments that meet there: what is left of it may be several paths, and a lone anchor
/// goes too.
void removeSelected(model::Document& document);

} // namespace easel::session
