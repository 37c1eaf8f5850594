// One object of a document: a layer, a group, a path, a compound path, opaque art. Nodes are read by everyone and
// changed by Document alone, so that no change escapes the journal.
#pragma once

#include <boost/intrusive/set_hook.hpp>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "model/Extras.h"
#include "model/Shared.h"
#include "model/Types.h"

namespace easel::model {

/// A node's identity: where it is stored, and how many times that place has been used. Undo brings a removed node
/// back with the identity it had.
struct NodeId {
    std::uint32_t slot = 0;
    std::uint32_t generation = 0; ///< 0 is no node

    bool operator==(const NodeId&) const = default;
};

/// A compound path is drawn as one, its children are the subpaths: all paths, all of its style.
enum class NodeType : std::uint8_t { Root, Layer, Group, Path, Opaque, Compound };

/// What is selected of a point of a path: its anchor, and its control points with the curves that they shape.
enum PointPart : std::uint8_t { kAnchorPart = 1, kInPart = 2, kOutPart = 4 };

/// What is selected of each point of a selected path, as bits of PointPart.
using PointSelection = std::vector<std::uint8_t>;

struct Clip;

/// What an object is like, whatever it stands in and whether it is selected. An attribute of art is declared here once:
/// from then on undo restores it, a change of it makes a step and raises an event, and saving notices it.
struct Content {
    Shared<PathData> path;     ///< paths only
    Shared<Style> style;       ///< paths and compound paths only
    Shared<OpaqueData> opaque; ///< opaque art; of other art that keeps its place, where that is, if it was transformed
    Shared<Extras> extras;     ///< nothing for ordinary ones
    Shared<std::string> name;  ///< a layer's title, an object's id; may be nothing
    bool locked = false;
    bool hidden = false;

    /// What opaque art is; null for other kinds of it, and for other nodes.
    [[nodiscard]] const Special* special() const { return opaque && opaque->special ? &*opaque->special : nullptr; }

    bool operator==(const Content&) const = default;
};

/// What the journal keeps of a node and undo brings back; a copy costs a few pointers. There are as many as nodes, so
/// that the flag goes where the content leaves room.
struct NodeState {
    class Node* parent = nullptr;          ///< null: not in the document
    std::uint64_t order = 0;               ///< place among the siblings; the smaller is nearer to the viewer
    Shared<PointSelection> pointSelection; ///< nothing: all points, if the path is selected
    [[no_unique_address]] Content content;
    bool selected = false;
};

/// What a duplicate was made of: the origin's name for it, and what it was like then.
struct Copied {
    std::uint32_t origin = 0;
    Content was;
};

/// What few nodes have, and keep for their life.
struct Kept {
    Shared<Clip> clip;
    Shared<Copied> copied;
    // Of art that others were made of, the origin's name for it; 0 for none
    std::uint32_t units = 0; ///< in whose units this lies
    std::uint32_t taken = 0; ///< whose place it takes, with all that the origin knows of how that is shown as a whole
};

class Node {
  public:
    Node(NodeId id, NodeType type);
    ~Node();
    Node(const Node&) = delete;
    Node& operator=(const Node&) = delete;

    [[nodiscard]] NodeId id() const { return id_; }
    [[nodiscard]] NodeType type() const { return type_; }
    [[nodiscard]] bool isContainer() const { return type_ != NodeType::Path && type_ != NodeType::Opaque; }
    /// Whether it has an outline and paint of its own: a path that is no subpath, or a compound path.
    [[nodiscard]] bool isOutlined() const;
    [[nodiscard]] bool isSubpath() const; ///< of a compound path
    [[nodiscard]] bool mayHold(NodeType type) const;
    /// Whether the node hangs in the document; false for a removed one that only the journal knows.
    [[nodiscard]] bool alive() const { return alive_; }

    [[nodiscard]] bool selected() const { return state_.selected; }
    [[nodiscard]] bool locked() const { return state_.content.locked; }
    [[nodiscard]] bool hidden() const { return state_.content.hidden; }
    [[nodiscard]] const std::string& name() const;
    [[nodiscard]] const PathData& path() const { return *state_.content.path; }
    [[nodiscard]] OutlineList outlines() const; ///< of a path, or of a compound path's subpaths; else none
    [[nodiscard]] const Style& style() const { return *state_.content.style; }
    [[nodiscard]] const OpaqueData& opaque() const { return *state_.content.opaque; }
    /// What opaque art is; null for other kinds of it, and for other nodes.
    [[nodiscard]] const TextData* text() const { return special<TextData>(); }
    [[nodiscard]] const ImageData* image() const { return special<ImageData>(); }
    [[nodiscard]] const SymbolData* symbol() const { return special<SymbolData>(); }
    /// Whether it is known what has been done to it as a whole, so that masks and gradients in its own units go along:
    /// opaque art, groups, layers, and of outlines those with such things. Of the others the points tell enough.
    [[nodiscard]] bool keepsPlace() const;
    /// What has been done to it as a whole, if that is known.
    [[nodiscard]] Affine placed() const { return state_.content.opaque ? state_.content.opaque->placed() : Affine{}; }
    [[nodiscard]] Box hull() const; ///< of a path, a compound path or opaque art; else empty
    [[nodiscard]] const Extras& extras() const;
    [[nodiscard]] const Content& content() const { return state_.content; }
    [[nodiscard]] const NodeState& state() const { return state_; }
    /// What the document's origin calls this node; 0 for one that was made here.
    [[nodiscard]] std::uint32_t origin() const { return origin_; }
    /// Of a duplicate of something that the document's origin knows; else null.
    [[nodiscard]] const Copied* copied() const { return kept_ && kept_->copied ? &*kept_->copied : nullptr; }
    /// As in Kept.
    [[nodiscard]] std::uint32_t units() const { return kept_ ? kept_->units : 0; }
    [[nodiscard]] std::uint32_t taken() const { return kept_ ? kept_->taken : 0; }
    /// What shows of the node and its descendants; null for all of it.
    [[nodiscard]] const Clip* clip() const;
    [[nodiscard]] std::uint8_t selectedParts(std::size_t index) const;
    [[nodiscard]] bool pointSelected(std::size_t index) const { return (selectedParts(index) & kAnchorPart) != 0; }
    [[nodiscard]] bool allPointsSelected() const { return state_.selected && !state_.pointSelection; }

    /// Relatives; null where there is none. The first child is the topmost.
    [[nodiscard]] Node* parent() const { return state_.parent; }
    [[nodiscard]] Node* firstChild() const;
    [[nodiscard]] Node* lastChild() const;
    [[nodiscard]] Node* next() const;
    [[nodiscard]] Node* previous() const;
    [[nodiscard]] std::size_t childCount() const;
    /// The layer that contains this node; a layer returns itself.
    [[nodiscard]] const Node& layer() const;
    [[nodiscard]] bool isWithin(const Node& ancestor) const;
    /// Whether the node or anything around it is hidden (locked).
    [[nodiscard]] bool effectivelyHidden() const;
    [[nodiscard]] bool effectivelyLocked() const;

  private:
    friend class Document;
    friend class Journal;
    friend class OrderLabels;
    friend class SpatialIndex;
    friend class Tree;
    friend struct Children;

    using Hook = boost::intrusive::set_member_hook<boost::intrusive::optimize_size<true>,
                                                   boost::intrusive::link_mode<boost::intrusive::normal_link>>;
    enum class Indexed : std::uint8_t { No, InTreeBefore, InTree };

    template <class Kind> [[nodiscard]] const Kind* special() const {
        return std::get_if<Kind>(state_.content.special());
    }

    NodeId id_;
    std::uint32_t origin_ = 0; // for the node's life, so that undo need not know it
    NodeType type_;
    bool alive_ = false;
    bool hasOwnUnits_ = false; // for the node's life as well
    Indexed indexed_ = Indexed::No;
    Shared<Kept> kept_; // for the node's life too; nothing for most
    NodeState state_;
    Hook hook_;                                 // in the parent's children
    std::unique_ptr<struct Children> children_; // containers only

    static constexpr std::uint32_t kNowhere = UINT32_MAX;
    std::uint64_t record_ = 0;               // the newest record on the journal's stack that has a note of this node
    std::uint32_t noteCount_ = 0;            // notes in all records, those to be redone included
    std::uint32_t rolledBackBy_ = 0;         // the roll-back that last changed this node
    std::uint32_t selectedPlace_ = kNowhere; // in the tree's list of selected nodes
    std::uint32_t dirtyPlace_ = kNowhere;    // in the index's list of dirty nodes
};

/// The node after `node` in paint order among `top` and its descendants: a container comes before its contents. Null at
/// the end.
[[nodiscard]] Node* nextWithin(const Node& top, const Node& node);
/// The same, passing over what `node` contains.
[[nodiscard]] Node* nextAfter(const Node& top, const Node& node);

} // namespace easel::model
