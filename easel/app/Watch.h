// What of a document has changed since it was painted last: boxes to paint anew, and during a gesture the art that it
// changes, which is painted over the picture until the gesture ends.
#pragma once

#include <optional>
#include <unordered_map>
#include <vector>

#include "model/Document.h"

namespace easel::app {

/// Contains all that is painted of the art, its stroke included. A miter is as long as its limit allows.
[[nodiscard]] model::Box paintedBox(const model::Content& content);

/// How far a stroke of the document reaches beyond the box of its path, at most. Looks at all of the document.
[[nodiscard]] double farthestReach(model::Document& document);

class Watch {
  public:
    ~Watch() { follow(nullptr, 0); }
    Watch() = default;
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

    /// Watches this document from now on, and no other. `reach` is farthestReach of it.
    void follow(model::Document* document, double reach);
    /// The document that was watched is gone.
    void forget();

    struct Change {
        std::vector<model::Box> boxes; ///< of the picture, to be painted anew
        bool everything = false;       ///< a group or layer came, went or was hidden: all of the picture
        bool real = false;             ///< whether anything but the selection has changed
    };
    /// What has changed since the last call. While a gesture runs, art that it changes is not part of the picture.
    [[nodiscard]] Change take(bool gesture);

    /// Hulls of all that is painted in the box lie in this one: strokes reach beyond.
    [[nodiscard]] model::Box paintedWithin(const model::Box& box) const {
        return {box.left - farthestReach_, box.top - farthestReach_, box.right + farthestReach_,
                box.bottom + farthestReach_};
    }
    /// The art that the running gesture has changed or made, the bottommost first.
    [[nodiscard]] const std::vector<model::Node*>& live() const { return live_; }
    /// Whether the picture leaves it out.
    [[nodiscard]] bool isLifted(const model::Node& node) const { return lifted_.contains(node.id().slot); }
    /// Whether the running gesture has made it.
    [[nodiscard]] bool isNew(const model::Node& node) const;
    /// What it was like before the running gesture.
    [[nodiscard]] const model::Content& before(const model::Node& node) const;
    /// How far the running gesture has moved art, if it has done nothing else to it.
    [[nodiscard]] std::optional<model::Point> movedBy(const model::Node& art) const;

  private:
    struct Before {
        model::NodeId id;
        model::NodeType type;
        bool alive;
        const model::Node* parent;
        std::uint64_t order;
        model::Content content;
    };

    void note(const model::Node& node);
    [[nodiscard]] const Before* noteOf(const model::Node& node) const; ///< or null: it has not changed
    /// The node as it is now, if it is there.
    [[nodiscard]] model::Node* now(const Before& before) const;
    [[nodiscard]] static bool isSame(const Before& before, const model::Node* node);
    [[nodiscard]] static bool showsAsAWhole(const Before& before, const model::Node* node);
    void lift(std::uint32_t slot, model::NodeId id, model::Node* node);
    static void addBoxes(const Before& before, const model::Node* node, Change& change);

    model::Document* document_ = nullptr;
    std::unordered_map<std::uint32_t, Before> touched_; // by slot
    std::unordered_map<std::uint32_t, model::NodeId> lifted_;
    std::vector<model::Node*> live_;
    double farthestReach_ = 0;
};

} // namespace easel::app
