// Labels are dealt with a big stride at the ends and by halving in between. When a gap is used up, the smallest aligned
// range of labels around it that is thinly enough settled is dealt anew. The wider a range, the thinner it has to be,
// so each dealing pays for many later newcomers: on average a newcomer costs a logarithm of relabelled siblings.
#include "model/OrderLabels.h"

#include <algorithm>

#include "model/Journal.h"
#include "model/Node.h"

namespace easel::model {

namespace {

constexpr std::uint64_t kStride = std::uint64_t{1} << 32;
constexpr std::uint64_t kLeastGap = 4;
// Between 1 and 2. Nearer to 1, ranges may be fuller, but are dealt more often.
constexpr double kThinning = 1.4;

} // namespace

std::uint64_t OrderLabels::between(Node* above, Node* below, Journal& journal) {
    if (!above && !below) return std::uint64_t{1} << 63;
    const auto gap = [&] { return (below ? below->state_.order : UINT64_MAX) - (above ? above->state_.order : 0); };
    if (gap() < 2) makeRoom(above ? *above : *below, journal);
    const std::uint64_t step = above && below ? gap() / 2 : std::min(gap() / 2, kStride);
    return above ? above->state_.order + step : below->state_.order - step;
}

void OrderLabels::makeRoom(Node& crowded, Journal& journal) {
    Node* first = &crowded;
    Node* last = &crowded;
    std::uint64_t count = 1;
    double mostAllowed = 1;
    for (int bits = 1; bits <= 64; ++bits) {
        mostAllowed *= 2 / kThinning;
        const std::uint64_t span = bits < 64 ? (std::uint64_t{1} << bits) - 1 : UINT64_MAX;
        const std::uint64_t low = crowded.state_.order & ~span;
        const std::uint64_t high = low + span;
        for (Node* at = first->previous(); at && at->state_.order >= low; at = at->previous(), ++count) first = at;
        for (Node* at = last->next(); at && at->state_.order <= high; at = at->next(), ++count) last = at;
        const std::uint64_t gap = span / (count + 1);
        if (static_cast<double>(count) > mostAllowed || gap < kLeastGap) continue;

        // The order stays the same, so the set of siblings stays sorted while its labels change.
        std::uint64_t label = low;
        for (Node* at = first;; at = at->next()) {
            journal.note(*at);
            at->state_.order = label += gap;
            if (at == last) return;
        }
    }
}

} // namespace easel::model
