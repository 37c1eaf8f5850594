// Text in the document.
#pragma once

#include <string>

#include "core/values/ArtboardPoint.h"
#include "core/values/DocumentEnumerations.h"
#include "core/values/PathStyle.h"

struct ArtObject;

namespace kzo::plugin {

/// One line of text at a point of its baseline.
struct PointText {
    std::string contents;
    std::string font; // empty for the host's default
    double size = 0.0;
    core::ParagraphJustification justification{};
    core::PathStyle paint;
    core::ArtboardPoint position;
};

/// Null when the host refuses.
[[nodiscard]] ArtObject* newPointText(const PointText& text, core::PaintOrder order, ArtObject* prep);

} // namespace kzo::plugin
