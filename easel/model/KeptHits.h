// What was found at the place that was searched last, best first: whoever takes away one object of a stack and asks
// again is told the next one at once. Knows which changes leave that true; what hits, the document knows.
#pragma once

#include <cstddef>
#include <cstdint>
#include <set>
#include <unordered_map>
#include <vector>

#include "model/HitTest.h"
#include "model/Node.h"

namespace easel::model {

class KeptHits {
  public:
    struct Place {
        Point point;
        double tolerance = 0;
        HitRequest request = HitRequest::Nothing;
        HitOrder order = HitOrder::Kind;

        bool operator==(const Place&) const = default;
    };
    /// The best hit of one object.
    struct Found {
        Hit hit;
        double distance = 0;
    };

    /// The hits among one container and its descendants.
    class Search {
      public:
        explicit Search(HitOrder order) : found_(BestFirst{order}) {}

        void add(const Found& found); ///< which its object has none of yet
        [[nodiscard]] Hit best() const { return found_.empty() ? Hit{} : found_.begin()->hit; }
        /// Hands over those that have changed since, and that have to be looked at again.
        [[nodiscard]] std::vector<Node*> takeChanged();

      private:
        friend class KeptHits;
        struct BestFirst {
            HitOrder order;
            bool operator()(const Found& a, const Found& b) const;
        };
        using All = std::set<Found, BestFirst>;

        bool takeOut(Node& node); ///< false when there are too many changes

        All found_;
        std::unordered_map<const Node*, All::iterator> places_; ///< the end for what has changed
        std::vector<Node*> changed_;
    };

    /// Whether the place has been asked for before, which makes it worth to keep what is there. `geometry` counts the
    /// changes of outlines, of what comes and of what goes.
    [[nodiscard]] bool isAskedAgain(const Place& place, const Node& within, std::uint64_t geometry);
    /// What is kept; null where nothing is.
    [[nodiscard]] Search* find(const Node& within);
    Search& begin(const Node& within) {
        return searches_.insert_or_assign(&within, Search(place_.order)).first->second;
    }

    /// To be called before a node changes, whatever of it. What it holds is seen through it, so that a change of a
    /// container with something in it leaves nothing known.
    void aboutToChange(Node& node);
    void forget();

  private:
    Place place_;
    const Node* first_ = nullptr; ///< the container that was searched first at the place; null: no place
    std::uint64_t geometry_ = 0;
    std::unordered_map<const Node*, Search> searches_;
};

} // namespace easel::model
