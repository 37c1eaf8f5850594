// The transform suite.
#include "hostapi/AITransformArtSuite.h"

#include <cmath>
#include <vector>

#include "model/Flat.h"
#include "suites/Enter.h"
#include "suites/Shared.h"

namespace easel::suites {

namespace {

using model::Node;

void transformArt(Art art, const AIRealMatrix& matrix, AIReal lineScale, std::int32_t flags) {
    const model::Affine by = (flags & kTransformObjects) ? affineFromHost(matrix) : model::Affine{};
    require(lineScale > 0 && std::isfinite(lineScale));
    const double lines = (flags & kScaleLines) ? lineScale : 1;
    if (art.node.isContainer() && !(flags & kTransformChildren)) return;
    if (!(flags & kTransformSelectionOnly)) return require(art.document.transform(art.node, by, lines));
    // A group that is selected takes its mask along.
    std::vector<Node*> whole;
    for (Node* const node : art.document.selection()) {
        const bool goesAlong = node != &art.node && node->parent()->selected();
        if (!goesAlong && node->isWithin(art.node)) whole.push_back(node);
    }
    for (const Node* const node : whole) require(model::Document::staysFinite(*node, by, lines));
    for (Node* const node : whole) art.document.transform(*node, by, lines);
}

} // namespace

model::Affine affineFromHost(const AIRealMatrix& m) {
    for (const double number : {m.a, m.b, m.c, m.d, m.tx, m.ty}) require(std::isfinite(number));
    const model::Affine by{m.a, m.b, m.c, m.d, m.tx, m.ty};
    require(!model::isFlat(by));
    return by;
}

template <> void fill(AITransformArtSuite& suite) { enter<&AITransformArtSuite::TransformArt, transformArt>(suite); }

} // namespace easel::suites
