// The expand suite: what is more than that becomes plain paths and groups.
#include "hostapi/AIExpandSuite.h"

#include <vector>

#include "session/documents/Documents.h"
#include "suites/Enter.h"

namespace easel::suites {

namespace {

using model::Document;
using model::GroupKind;
using model::Node;
using model::NodeType;
using session::Documents;

class Expansion {
  public:
    Expansion(Document& document, std::int32_t flags, std::int32_t steps)
        : document_(document),
          flags_(flags),
          paint_{.strokes = has(kExpandStroke),
                 .gradients = has(kExpandGradientToMesh) || has(kExpandGradientToPaths),
                 .toMeshes = has(kExpandGradientToMesh),
                 .patterns = has(kExpandPattern),
                 .steps = steps} {}

    /// Returns whether anything has been taken apart.
    bool run(Node& top) {
        std::vector<Node*> all;
        for (Node* at = &top; at; at = nextWithin(top, *at))
            if (has(kExpandLocked) || !at->effectivelyLocked()) all.push_back(at);
        for (auto at = all.rbegin(); at != all.rend(); ++at) // what is in something before that
            expand(**at);
        any_ = Documents::expandTexts(document_, texts_) || any_;
        return any_;
    }

  private:
    [[nodiscard]] bool has(std::int32_t flag) const { return (flags_ & flag) != 0; }

    void expand(Node& node) {
        const GroupKind kind = node.type() == NodeType::Group ? node.extras().groupKind : GroupKind::Plain;
        if (kind == GroupKind::Plugin && has(kExpandPluginArt)) expandPluginArt(node);
        if (kind == GroupKind::Mesh && has(kExpandGradientToPaths)) makePlain(node);
        if (node.isOutlined()) any_ = Documents::expandPaint(document_, node, paint_) || any_;
        if (node.text() && has(kExpandText)) texts_.push_back(&node);
        if (node.symbol() && has(kExpandSymbolInstances)) any_ = Documents::expandInstance(document_, node) || any_;
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

    Document& document_;
    std::int32_t flags_;
    model::PaintExpansion paint_;
    std::vector<Node*> texts_; // taken apart together at the end
    bool any_ = false;
};

void expand(Art art, std::int32_t flags, std::int32_t steps) {
    require(steps > 0);
    require(Expansion(art.document, flags, steps).run(art.node), kRefusedErr);
}

} // namespace

template <> void fill(AIExpandSuite& suite) { enter<&AIExpandSuite::Expand, expand>(suite); }

} // namespace easel::suites
