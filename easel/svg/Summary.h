// What a drawing holds, for people to read.
#pragma once

#include <iosfwd>

#include "model/Document.h"

namespace easel::svg {

/// Tells the page and its size on paper, the layers, the objects by kind, and what is opaque and why, a line each.
void summarize(model::Document& document, std::ostream& out);

} // namespace easel::svg
