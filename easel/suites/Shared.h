// What several suites make of the same arguments.
#pragma once

#include <optional>
#include <utility>

#include "hostapi/AIPathStyleSuite.h"
#include "hostapi/AITransformArtSuite.h"
#include "suites/Arguments.h"

namespace easel::suites {

/// Where new or moved art goes.
struct Place {
    model::Document& document;
    model::Node& anchor;
    model::Placement placement;

    /// What will hold it; has to be asked whether it may (model::Node::mayHold).
    [[nodiscard]] const model::Node& parent() const {
        const bool beside = placement == model::Placement::Above || placement == model::Placement::Below;
        return beside ? *anchor.parent() : anchor;
    }
};

/// Throws kBadParameterErr for a paint order that the prepositional art does not allow.
[[nodiscard]] Place placeFor(std::int16_t paintOrder, const std::optional<Art>& prep);

/// Throws kBadParameterErr for a value out of its range.
[[nodiscard]] model::Style styleFromHost(const AIPathStyle& style);
[[nodiscard]] AIPathStyle styleToHost(const model::Style& style);
/// Where its stroke lies stays.
/// What art that looked like `was` looks like, of which a plug-in was told less than all, with what it tells.
[[nodiscard]] model::Style repainted(const model::Style& was, model::Style told);
void paintPath(const Art& path, const model::Style& style);

/// Gives the art extras that differ in what `change` does to them. Throws kRefusedErr for a subpath: it has no element
/// that could keep them.
template <class Change> void changeExtras(const Art& art, Change change) {
    require(!art.node.isSubpath(), kRefusedErr);
    model::Extras extras = art.node.extras();
    change(extras);
    art.document.setExtras(art.node, std::move(extras));
}

/// Throws kBadParameterErr for one that has no inverse.
[[nodiscard]] model::Affine affineFromHost(const AIRealMatrix& matrix);

// Text

/// Whether the bytes are UTF-8 of characters that a drawing can say: no control characters, no U+FFFE, no U+FFFF.
[[nodiscard]] bool isPlainText(std::string_view text);
[[nodiscard]] model::Justification justificationFromHost(std::int16_t justification); ///< throws kBadParameterErr
[[nodiscard]] std::int16_t justificationToHost(model::Justification justification);
[[nodiscard]] bool isText(const model::Node& node);

} // namespace easel::suites
