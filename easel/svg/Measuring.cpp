// The renderer finds an element by its id only, so it is sent the drawing with ids for those that have none. What
// cannot have one, or shares it, gets a group around it.
#include "svg/Measuring.h"

#include <algorithm>
#include <map>
#include <string>
#include <utility>

#include "svg/Packing.h"
#include "svg/Reach.h"
#include "svg/RenderProcess.h"
#include "svg/Values.h"

namespace easel::svg {

namespace {

constexpr double kMostSeconds = 5; ///< for a whole drawing; the user waits

class Labelled {
  public:
    Labelled(const Source& source, const std::vector<Unmeasured>& art) : source_(source) {
        std::map<std::string_view, int> uses;
        for (const Unmeasured& each : art) ++uses[idOf(source.elements[each.element])];
        for (const Unmeasured& each : art) {
            const Element& element = source.elements[each.element];
            const std::string_view own = idOf(element);
            if (!own.empty() && uses[own] == 1) {
                ids.emplace_back(own);
                continue;
            }
            ids.push_back("easel-art-" + std::to_string(ids.size()));
            const bool takesOne = element.reason != Reason::Entity && own.empty();
            takesOne ? addId(element) : wrap(element);
        }
        text += source.text.substr(copied_);
    }

    std::vector<std::string> ids; ///< of the art, in its order
    std::string text;

  private:
    /// Empty where there is none, or none that is written as it is.
    [[nodiscard]] std::string_view idOf(const Element& element) const {
        if (element.reason == Reason::Entity) return {};
        const std::string_view tag = source_.startTag(element);
        for (std::size_t at = tag.find("id"); at != tag.npos; at = tag.find("id", at + 1)) {
            const std::size_t equals = tag.find_first_not_of(kSpace, at + 2);
            if (!isSpace(tag[at - 1]) || tag[equals] != '=') continue;
            const std::size_t quote = tag.find_first_not_of(kSpace, equals + 1);
            const std::string_view id = tag.substr(quote + 1, tag.find(tag[quote], quote + 1) - quote - 1);
            return id.find('&') == id.npos ? id : std::string_view("&"); // which is never used once
        }
        return {};
    }

    void copyTo(std::size_t place) {
        text.append(source_.text, copied_, place - copied_);
        copied_ = place;
    }

    void addId(const Element& element) {
        copyTo(element.begin + 1 + source_.tagName(element).size());
        text += " id=\"" + ids.back() + '"';
    }

    void wrap(const Element& element) {
        const Element& around = source_.elements[source_.containers[element.container].element];
        const std::string_view name = source_.tagName(around);
        const std::string group = std::string(name.substr(0, name.size() - localName(name).size())) + 'g';
        copyTo(element.begin);
        text += '<' + group + " id=\"" + ids.back() + "\">";
        copyTo(element.end);
        text += "</" + group + '>';
    }

    const Source& source_;
    std::size_t copied_ = 0;
};

} // namespace

void Source::measure(model::Document& document) const {
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
        RenderProcess renderer;
        renderer.ask(render::Request::Load, drawing.text);
        render::Packer packed;
        packed << render::BoundsRequest{document.width(), document.height(), kMostSeconds, std::move(drawing.ids)};
        const std::string reply = renderer.ask(render::Request::Bounds, packed.bytes);
        render::Unpacker(reply) >> boxes;
    } catch (const RenderError& error) {
        return fail(error.what());
    }
    if (boxes.size() < art.size())
        fail("there are " + std::to_string(art.size() - boxes.size()) + " objects too many to be measured");
    for (std::size_t i = 0; i < boxes.size(); ++i)
        if (!boxes[i].isEmpty() && withinReach(boxes[i])) document.setMeasured(art[i].node, art[i].bounds, boxes[i]);
}

} // namespace easel::svg
