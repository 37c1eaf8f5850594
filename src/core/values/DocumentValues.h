// Plain values of art and documents: what is looked for, how art looks, what a document is edited with. Lengths are
// points.
#pragma once

#include <string>

#include "core/values/DocumentEnumerations.h"
#include "core/values/Font.h"
#include "core/values/PathStyle.h"

namespace kzo::core {

/// Art of a kind; of the attributes in `which` it has just those in `attributes`.
struct MatchArtSpec {
    MatchArtType type = MatchArtType::Any;
    ArtAttribute which{};
    ArtAttribute attributes{};
};

/// All that makes up the look of an object besides its outlines.
struct ArtStyle {
    PathStyle paint;
    double opacity = 1; ///< 0 to 1
    BlendMode blendMode = BlendMode::Normal;
    BlendKnockout knockout = BlendKnockout::Off;

    bool operator==(const ArtStyle&) const = default;
};

/// What new text gets where nothing else is asked for. Without a name the font is the host's default one.
struct TextStyle {
    Font font;
    ParagraphJustification justification = ParagraphJustification::Left;

    bool operator==(const TextStyle&) const = default;
};

/// The page.
struct DocumentSetup {
    double width = 0;
    double height = 0;

    bool operator==(const DocumentSetup&) const = default;
};

struct Grid {
    double spacing = 0; ///< of its main lines
    int subdivisions = 0;
    bool visible = false;
    bool snaps = false; ///< what is drawn snaps to it

    bool operator==(const Grid&) const = default;
};

} // namespace kzo::core
