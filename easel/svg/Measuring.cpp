// The renderer finds an element by its id only, so it is sent the drawing with ids for those that have none. What
// cannot have one, or shares it, gets a group around it.
#include "svg/Measuring.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <utility>

#include "svg/Limits.h"
#include "svg/Markup.h"
#include "svg/Packing.h"
#include "svg/Reach.h"
#include "svg/RenderProcess.h"
#include "svg/Values.h"

namespace easel::svg {

namespace {

constexpr double kMostSeconds = 5; ///< for a whole drawing; the user waits

constexpr std::size_t kMostTogether = 16; ///< children of one element

/// The drawing with an id for each piece of art. The renderer walks past all that stands beside and around an element
/// on its way to it, so what stands together by the thousand is put into groups of groups.
class Labelled {
  public:
    Labelled(const Source& source, const std::vector<Unmeasured>& art) : source_(source) {
        std::map<std::string, int> uses;
        for (const Unmeasured& each : art) ++uses[idOf(source.elements[each.element])];
        for (const Unmeasured& each : art) {
            const Element& element = source.elements[each.element];
            const std::string own = idOf(element);
            if (!own.empty() && uses[own] == 1) {
                ids.push_back(own);
                continue;
            }
            ids.push_back("easel-art-" + std::to_string(ids.size()));
            const bool takesOne = element.reason != Reason::Entity && own.empty();
            takesOne ? addId(element) : wrap(element);
        }
        gatherAround(art);
        join();
    }

    std::vector<std::string> ids; ///< of the art, in its order
    std::string text;

  private:
    /// What comes first where several things are inserted at one place.
    enum class Rank : std::uint8_t { End, Around, Begin };
    struct Insertion {
        std::size_t at;
        Rank rank;
        std::string text;
    };

    /// Empty where there is none, or none that is written as it is.
    [[nodiscard]] std::string idOf(const Element& element) const {
        if (element.reason == Reason::Entity) return {};
        std::string id(Tag(source_.startTag(element)).find("id").value_or(""));
        return id.find('&') == id.npos ? id : "&"; // which is never used once
    }

    void addId(const Element& element) {
        insertions_.push_back(
            {element.begin + 1 + source_.tagName(element).size(), Rank::Begin, " id=\"" + ids.back() + '"'});
    }

    void wrap(const Element& element) {
        const std::string group = groupIn(element.container);
        insertions_.push_back({element.begin, Rank::Begin, '<' + group + " id=\"" + ids.back() + "\">"});
        insertions_.push_back({element.end, Rank::End, "</" + group + '>'});
    }

    [[nodiscard]] std::string groupIn(std::uint32_t container, const char* type = "g") const {
        const std::string_view name = source_.tagName(source_.elements[source_.containers[container].element]);
        return std::string(name.substr(0, name.size() - localName(name).size())) + type;
    }
    /// The name of an element that may be put around others unnoticed; none where selectors could tell the difference.
    [[nodiscard]] std::optional<std::string> unseenGroupIn(std::uint32_t container) const {
        if (source_.sheetHasUnread) return std::nullopt;
        for (const char* const type : {"g", "a"}) { // which are drawn alike
            std::string name = groupIn(container, type);
            if (source_.defaults.count(name) == 0 && !source_.rules.maySeeAround(type)) return name;
        }
        return std::nullopt;
    }

    /// The renderer has limits.
    void gatherAround(const std::vector<Unmeasured>& art) {
        if (source_.elementCount + source_.elementCount / (kMostTogether - 2) > kMostElements) return;
        std::set<std::uint32_t> containers;
        for (const Unmeasured& each : art)
            for (std::uint32_t at = source_.elements[each.element].container; containers.insert(at).second;)
                at = source_.elements[source_.containers[at].element].container;
        for (const std::uint32_t container : containers) gather(container);
    }

    void gather(std::uint32_t container) {
        const std::uint32_t parent = source_.containers[container].element;
        std::vector<const Element*> children;
        for (std::size_t at = parent + 1; at < source_.elements[parent].after; at = source_.elements[at].after)
            children.push_back(&source_.elements[at]);
        std::size_t levels = 0;
        for (std::size_t most = kMostTogether; most < children.size(); most *= kMostTogether) ++levels;
        if (source_.containers[container].depth + source_.elements[parent].height + 2 * kDeepestGathering >
            kDeepestElement)
            return;
        const std::optional<std::string> group = levels > 0 ? unseenGroupIn(container) : std::nullopt;
        if (!group) return;
        for (std::size_t level = 0, size = kMostTogether; level < levels; ++level, size *= kMostTogether) {
            for (std::size_t first = 0; first < children.size(); first += size) {
                const std::size_t last = std::min(first + size, children.size()) - 1;
                insertions_.push_back({children[first]->begin, Rank::Around, '<' + *group + '>'});
                insertions_.push_back({children[last]->end, Rank::End, "</" + *group + '>'});
            }
        }
    }

    void join() {
        std::stable_sort(insertions_.begin(), insertions_.end(), [](const Insertion& a, const Insertion& b) {
            return std::tie(a.at, a.rank) < std::tie(b.at, b.rank);
        });
        std::size_t copied = 0;
        for (const Insertion& each : insertions_) {
            text.append(source_.text, copied, each.at - copied).append(each.text);
            copied = each.at;
        }
        text.append(source_.text, copied);
    }

    static constexpr std::size_t kDeepestGathering = 5; ///< levels for a million

    const Source& source_;
    std::vector<Insertion> insertions_;
};

} // namespace

std::vector<model::Box> boxesIn(std::string_view drawing, model::Point page, std::vector<std::string> ids) {
    RenderProcess renderer;
    renderer.ask(render::Request::Load, drawing);
    render::Packer packed;
    packed << render::BoundsRequest{page.x, page.y, kMostSeconds, std::move(ids)};
    const std::string reply = renderer.ask(render::Request::Bounds, packed.bytes);
    std::vector<model::Box> boxes;
    render::Unpacker(reply) >> boxes;
    return boxes;
}

void KnownFiles::measure(model::Document& document) const {
    if (const auto guessed = document.takeGuessed(); !guessed.empty()) measureTexts(document, guessed);
}

void Source::measure(model::Document& document) const {
    KnownFiles::measure(document);
    if (!unmeasured.empty()) svg::measure(document, *this, std::exchange(unmeasured, {}));
}

void measure(model::Document& document, const Source& source, const std::vector<Unmeasured>& art) {
    const auto fail = [&](const std::string& why) {
        if (source.warn) source.warn(source.fileName + ": where some art lies cannot be told: " + why);
    };
    Labelled drawing(source, art);
    const bool recoded = source.encoding == Encoding::Utf16Little || source.encoding == Encoding::Utf16Big;
    if (recoded) drawing.text = toUtf16(drawing.text, source.encoding == Encoding::Utf16Big);
    std::vector<model::Box> boxes;
    try {
        boxes = boxesIn(drawing.text, {document.width(), document.height()}, std::move(drawing.ids));
    } catch (const RenderError& error) {
        return fail(error.what());
    }
    if (boxes.size() < art.size())
        fail("there are " + std::to_string(art.size() - boxes.size()) + " objects too many to be measured");
    for (std::size_t i = 0; i < boxes.size(); ++i)
        if (!boxes[i].isEmpty() && withinReach(boxes[i])) document.setMeasured(art[i].node, art[i].bounds, boxes[i]);
}

} // namespace easel::svg
