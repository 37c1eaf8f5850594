// The group suite: masks of groups.
#include "hostapi/AIGroupSuite.h"

#include <utility>

#include "model/Clip.h"
#include "suites/Enter.h"

namespace easel::suites {

namespace {

using model::Mask;
using model::Node;
using model::NodeType;
using model::Placement;

void requireGroup(const Art& art) { require(art.node.type() == NodeType::Group || art.node.type() == NodeType::Layer); }

void setClip(const Art& art, bool hasOther, model::Shared<model::Clip> clip) {
    model::Extras extras = art.node.extras();
    extras.hasOtherClip = hasOther;
    extras.clip = std::move(clip);
    art.document.setExtras(art.node, std::move(extras));
}

void clip(const Art& art) {
    Node* const top = art.node.firstChild();
    require(top && top->isOutlined(), kRefusedErr);
    Mask::Shape shape{.subpaths = {}, .evenOdd = top->style().evenOdd};
    for (const auto& outline : top->outlines()) {
        shape.subpaths.push_back(*outline);
        shape.subpaths.back().closed = true;
    }
    setClip(art, true, model::Shared(clipOnPage(art.node, {std::move(shape)})));
    art.document.remove(*top);
}

void release(const Art& art) {
    model::Style unpainted;
    unpainted.stroke = false;
    for (const Mask::Shape& shape : maskOnPage(art.node)) {
        if (shape.subpaths.empty()) continue;
        unpainted.evenOdd = shape.evenOdd;
        const bool isPath = shape.subpaths.size() == 1;
        Node& made =
            art.document.create(isPath ? NodeType::Path : NodeType::Compound, Placement::OnTopInside, art.node);
        art.document.setStyle(made, unpainted);
        if (isPath) art.document.setPath(made, shape.subpaths.front());
        for (const model::PathData& subpath : shape.subpaths)
            if (!isPath)
                art.document.setPath(art.document.create(NodeType::Path, Placement::OnTopInside, made), subpath);
    }
    const bool wasRead = art.node.origin() != 0 || art.node.copied();
    setClip(art, wasRead, {});
}

bool isClipped(Art art) {
    requireGroup(art);
    return art.node.clip() != nullptr;
}

void setClipped(Art art, bool clipped) {
    if (isClipped(art) == clipped) return;
    require(art.node.type() == NodeType::Group, kRefusedErr);
    clipped ? clip(art) : release(art);
}

} // namespace

template <> void fill(AIGroupSuite& suite) {
    enter<&AIGroupSuite::GetGroupClipped, isClipped>(suite);
    enter<&AIGroupSuite::SetGroupClipped, setClipped>(suite);
}

} // namespace easel::suites
