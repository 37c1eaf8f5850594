// What keys do to the document in front.
#pragma once

#include <cstdint>
#include <vector>

#include "model/Document.h"

namespace easel::session {

/// Removes the selected art as one step, but nothing that is locked or hidden. Of a path with just some anchors
/// selected these go, with the segments that meet there: what is left of it may be several paths, and a lone anchor
/// goes too.
void removeSelected(model::Document& document);

/// Whole objects that are selected, and not locked or hidden, the topmost first. A group takes along what is in it, a
/// compound path its pieces.
[[nodiscard]] std::vector<model::Node*> selectedObjects(model::Document& document);

/// Redoes a step. What was selected since it was undone, and is locked or hidden now, is not selected any
/// more. False where there is none.
bool redo(model::Document& document);

/// Selects all that is neither locked nor hidden.
void selectAll(model::Document& document);

// With selectedObjects; each is one step
/// Puts copies above them, a little aside, and selects these.
void duplicateSelected(model::Document& document);
/// Puts them into a new group where the topmost was. Does nothing with one alone that is a group already.
void groupSelected(model::Document& document);
/// Puts what the groups among them hold in their places.
void ungroupSelected(model::Document& document);
enum class Order : std::uint8_t { Front, Forward, Backward, Back };
/// Puts them in front of, or behind, all else of what they are in, or the next of that.
void arrangeSelected(model::Document& document, Order order);

} // namespace easel::session
