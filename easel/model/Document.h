// A document: layers of art, changed only through the operations below, each of which is noted in the journal. Knows no
// plug-in, no file and no window.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "model/HitTest.h"
#include "model/Journal.h"
#include "model/Node.h"
#include "model/Settings.h"
#include "model/Snapshot.h"

namespace easel::model {

/// Where new or moved art goes: next to `anchor`, or into it.
enum class Placement : std::uint8_t { Above, Below, OnTopInside, AtBottomInside };

/// What the user sees of a document.
struct View {
    double zoom = 1; ///< screen units a point
    Point center;
    double windowWidth = 0; ///< screen units; 0 where no window is open: it is then as large as the page
    double windowHeight = 0;

    bool operator==(const View&) const = default;
};

/// What a document was read from, kept for whoever writes it again.
class Origin {
  public:
    Origin() = default;
    virtual ~Origin() = default;
    Origin(const Origin&) = delete;
    Origin& operator=(const Origin&) = delete;

    /// Finds out where opaque art lies, as far as that is not known (see Document::setMeasured).
    virtual void measure(class Document& /*document*/) const {}
};

/// Every change is a transaction of its own unless one is running (see Journal). A change that changes nothing leaves
/// no note. Where a node is asked for, it hangs in this document.
class Document {
  public:
    /// A document of `width` by `height` points with one empty layer, which is current.
    Document(double width, double height);
    ~Document();
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    // Page and view
    [[nodiscard]] double width() const;
    [[nodiscard]] double height() const;
    View view;                            ///< not part of undo
    Settings settings;                    ///< nor are these
    [[nodiscard]] Box visibleBox() const; ///< the window at the view's centre, divided by its zoom
    /// The window fills the screen: its top left corner is the screen's origin, and a screen unit there a unit here.
    [[nodiscard]] Point toScreen(Point point) const;
    [[nodiscard]] Point fromScreen(Point place) const;

    // Artboards; there is always one, and at first it is the page
    [[nodiscard]] std::vector<Artboard> artboards();
    void setArtboards(std::vector<Artboard> artboards); ///< one at least; new ones by newArtboardId
    [[nodiscard]] std::uint32_t newArtboardId() { return ++settings.lastArtboard; }
    [[nodiscard]] Box placeOf(const Artboard& artboard) const;

    // Layers; layer 0 is the topmost. The last layer cannot be removed; when the current one goes, the topmost takes
    // over.
    [[nodiscard]] Node& root();
    [[nodiscard]] Node& reach(); ///< what the pointer can reach: the isolated group, or all
    [[nodiscard]] std::size_t layerCount() const;
    [[nodiscard]] Node* layerAt(std::size_t index); ///< or null; costs the way from the layer asked for before
    [[nodiscard]] Node& currentLayer();
    void setCurrentLayer(Node& layer);      ///< not part of undo
    Node& addLayer(std::string_view title); ///< on top of all, and current

    // Looking up
    /// Grows when a node comes, goes or takes another place: until then, what was found by walking is so still.
    [[nodiscard]] std::uint64_t arrangement() const;
    /// The node in the document with this identity, or null when it was removed or never was.
    [[nodiscard]] Node* find(NodeId id);
    [[nodiscard]] Node* findByName(std::string_view name);
    /// Negative when `a` lies above `b` in paint order, positive when below, 0 for the same node. Costs their depth.
    [[nodiscard]] static int comparePaintOrder(const Node& a, const Node& b);
    /// Selected art, topmost first; a group counts when it is selected itself.
    [[nodiscard]] std::vector<Node*> selection();
    [[nodiscard]] bool hasSelection(const Node& within) const;

    // Art
    /// Makes an empty layer, group, path, compound path or opaque art. The caller has checked that `anchor` may have
    /// such a neighbour or child (see Node::mayHold). A subpath has the style of its compound path.
    Node& create(NodeType type, Placement placement, Node& anchor);
    void setBounds(Node& opaque, const Box& bounds);
    /// Finds out where opaque art lies, which may take seconds the first time; searches by place do so themselves.
    void measure();
    /// Tells where it lay at first: to all who share what was known, also in the past, for this is no change.
    void setMeasured(NodeId opaque, Shared<Box> known, const Box& bounds);
    void setText(Node& opaque, TextData text); ///< makes text of opaque art, in bounds that are a guess
    /// The texts whose bounds have been guessed since this was asked last, for its origin to measure.
    [[nodiscard]] std::vector<NodeId> takeGuessed();
    void setSpecial(Node& opaque, Special special);
    /// A copy of art with all that it holds, without their names; as it is, it is not selected.
    Node& duplicate(const Node& node, Placement placement, Node& anchor);
    /// The same in two steps, between which the art may change and go.
    [[nodiscard]] Snapshot snapshotOf(const Node& node) const;
    Node& make(const Snapshot& snapshot, Placement placement, Node& anchor);
    /// A group or compound path that takes the place of art, with what belongs to that as a whole: its name, whether it
    /// is selected, locked and hidden, its extras, how it is clipped. The art is nameless then, and still there.
    Node& createInPlaceOf(Node& art, NodeType type);
    /// Empty art that is a part of what takes the place of `art`, in the units that this lies in.
    Node& createPart(NodeType type, Placement placement, Node& anchor, const Node& art);
    void remove(Node& node);
    void removeChildren(Node& node);
    void place(Node& node, Placement placement, Node& anchor);
    void setName(Node& node, std::string_view name); ///< a subpath takes none, for files have no place for it
    // A subpath is locked, hidden and faded together with its compound path.
    void setLocked(Node& node, bool locked); ///< what is selected in it is not any more, as
    void setHidden(Node& node, bool hidden); ///< with what is hidden
    void setOpacity(Node& node, double opacity);
    void setExtras(Node& node, Extras extras); ///< a subpath takes none, for files have no place for them

    // Paths
    void setPath(Node& path, PathData data);
    /// In place where possible.
    void setPoints(Node& path, std::size_t index, const PathPoint* points, std::size_t count);
    void setCorners(Node& path, std::size_t index, const PointFlags& corners); ///< else they are smooth
    void setPointCount(Node& path, std::size_t count); ///< cuts off at the end, or appends corners at the origin
    /// Before the point at `index`, or at the end; what is selected stays with its point.
    void insertPoints(Node& path, std::size_t index, const PathPoint* points, std::size_t count);
    void removePoints(Node& path, std::size_t index, std::size_t count);
    void setClosed(Node& path, bool closed);
    void reverse(Node& path);
    void setStyle(Node& path, const Style& style); ///< of all subpaths of a compound path
    /// Transforms the node and its descendants, with their strokes' lengths by `lineScale`; the affine has an inverse.
    /// Returns false and changes nothing where a number would be infinite then, or none. `offset` only moves.
    bool offset(Node& node, double dx, double dy);
    [[nodiscard]] static bool staysFinite(const Node& node, const Affine& by, double lineScale); ///< else it is refused
    bool transform(Node& node, const Affine& by, double lineScale = 1);
    void scaleLines(Node& node, double scale); ///< strokes' lengths alone, of the node and its descendants

    // Selection
    /// A container with its descendants. A group with something in it that is deselected is no longer selected itself;
    /// layers never are.
    void select(Node& node, bool selected);
    void selectPoints(Node& path, PointSelection points); ///< none at all deselects the path
    void deselectAll();
    void deselectAll(Node& within);

    // Searching
    /// The feature at `point` within `tolerance` points among `within` and its descendants; see HitTest.h.
    [[nodiscard]] Hit hitTest(Node& within, Point point, double tolerance, HitRequest request,
                              HitOrder order = HitOrder::Kind);
    /// The topmost path or opaque art at `point`: its fill, or within `tolerance` its outline. Not what is locked or
    /// hidden; nor is it in the next.
    [[nodiscard]] Node* topmostAt(Point point, double tolerance);
    /// The paths and opaque art that have a part in the box, in no order.
    [[nodiscard]] std::vector<Node*> touching(const Box& box);
    /// The paths, compound paths and opaque art that show, of which something has a hull that meets the box, the
    /// bottommost first.
    [[nodiscard]] std::vector<Node*> shownIn(const Box& box);
    /// The nearest of these within `tolerance` on visible art, passing over what the running gesture moved.
    [[nodiscard]] std::optional<Point> snapPoint(Point point, double tolerance, SnapTo what = SnapTo::Anchors);

    [[nodiscard]] Journal& journal();

    // Where it came from; not part of undo
    std::shared_ptr<const Origin> origin; ///< null for a document that was made here
    static void setOrigin(Node& node, std::uint32_t number);
    /// The node's content as it was when the node got its origin.
    [[nodiscard]] const Content& original(const Node& node) const;
    static void setClip(Node& node, Shared<Clip> clip);
    static void setHasOwnUnits(Node& node); ///< something of it lies in its own units, and goes along with it

    /// Whether both contain the same: page, tree, names, flags, paths, and styles as far as they show. Selection, view
    /// and identities do not count.
    [[nodiscard]] static bool sameContent(const Document& a, const Document& b);

  private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

} // namespace easel::model
