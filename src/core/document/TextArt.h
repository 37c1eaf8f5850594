// The view of an Art as a text frame: one line of text at a point of its baseline.
#pragma once

#include <string>

#include "core/document/ArtView.h"
#include "core/values/ArtboardPoint.h"
#include "core/values/Font.h"
#include "core/values/PathStyle.h"

namespace kzo::core {

/// Of a text with parts that look or lie otherwise than the rest, this is what its beginning is like.
class TextArt : public ArtView {
  public:
    using ArtView::ArtView;

    [[nodiscard]] bool canChange() const;       ///< not, where it has such parts
    [[nodiscard]] std::string contents() const; ///< UTF-8
    bool setContents(const std::string& contents);
    [[nodiscard]] Font font() const; ///< without a name, the host's default
    bool setFont(const Font& font);
    [[nodiscard]] ParagraphJustification justification() const;
    bool setJustification(ParagraphJustification justification);
    [[nodiscard]] TextOrientation orientation() const;
    bool setOrientation(TextOrientation orientation);
    [[nodiscard]] PathStyle paint() const;
    bool setPaint(const PathStyle& paint);
    [[nodiscard]] ArtboardPoint anchor() const; ///< the point that the text is at
};

} // namespace kzo::core
