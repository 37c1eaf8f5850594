// The expand suite: plug-in groups, meshes, strokes and uses of symbols become plain paths and groups.
#include "hostapi/AIExpandSuite.h"

#include <vector>

#include "model/StrokeOutline.h"
#include "session/documents/Documents.h"
#include "suites/Enter.h"

namespace easel::suites {

namespace {

using model::Document;
using model::GroupKind;
using model::Node;
using model::NodeType;
using model::Placement;

class Expansion {
  public:
    Expansion(Document& document, std::int32_t flags) : document_(document), flags_(flags) {}

    /// Returns whether anything has been taken apart.
    bool run(Node& top) {
        std::vector<Node*> all;
        for (Node* at = &top; at; at = nextWithin(top, *at)) all.push_back(at);
        for (auto at = all.rbegin(); at != all.rend(); ++at) // what is in something before that
            if ((flags_ & kExpandLocked) || !(*at)->effectivelyLocked()) expand(**at);
        return any_;
    }

  private:
    void expand(Node& node) {
        const GroupKind kind = node.type() == NodeType::Group ? node.extras().groupKind : GroupKind::Plain;
        if (kind == GroupKind::Plugin && (flags_ & kExpandPluginArt)) expandPluginArt(node);
        if (kind == GroupKind::Mesh && (flags_ & kExpandGradientToPaths)) makePlain(node);
        if (node.isOutlined() && node.style().stroke && (flags_ & kExpandStroke)) expandStroke(node);
        if (node.symbol() && (flags_ & kExpandSymbolInstances))
            any_ = session::Documents::expandInstance(document_, node) || any_;
    }

    void makePlain(Node& group) {
        model::Extras extras = group.extras();
        extras.groupKind = GroupKind::Plain;
        extras.plugin.clear();
        extras.columns = 0;
        document_.setExtras(group, std::move(extras));
        any_ = true;
    }

    void expandPluginArt(Node& group) {
        for (Node* child = group.firstChild(); child;) {
            Node* const next = child->next();
            if (child->extras().groupKind == GroupKind::EditArt) document_.remove(*child);
            child = next;
        }
        makePlain(group);
    }

    /// The stroke lies above the fill, which the path keeps; a path without any goes.
    void expandStroke(Node& node) {
        model::Style style = node.style();
        std::vector<model::PathData> outline;
        for (const auto& path : node.outlines())
            for (model::PathData& piece : strokeOutline(*path, style)) outline.push_back(std::move(piece));
        if (outline.empty()) return;
        any_ = true;
        Node& stroke = document_.create(NodeType::Compound, Placement::Above, node);
        model::Style filled;
        filled.fill = true;
        filled.stroke = false;
        filled.fillColor = style.strokeColor;
        filled.overprintFill = style.overprintStroke;
        document_.setStyle(stroke, filled);
        for (model::PathData& piece : outline)
            document_.setPath(document_.create(NodeType::Path, Placement::AtBottomInside, stroke), std::move(piece));
        model::Extras extras = node.extras();
        extras.dictionary.clear();
        document_.setExtras(stroke, std::move(extras));
        document_.setHidden(stroke, node.hidden());
        style.stroke = false;
        style.isFilled() ? document_.setStyle(node, style) : document_.remove(node);
    }

    Document& document_;
    std::int32_t flags_;
    bool any_ = false;
};

void expand(Art art, std::int32_t flags, std::int32_t steps) {
    require(steps > 0);
    require(Expansion(art.document, flags).run(art.node), kRefusedErr);
}

} // namespace

template <> void fill(AIExpandSuite& suite) { enter<&AIExpandSuite::Expand, expand>(suite); }

} // namespace easel::suites
