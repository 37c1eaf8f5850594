// Parsing all of a large drawing takes four times as long as storing it. Elements that were copied where they stood
// were parsed when they were read, so the parser is given a comment in place of each.
#include "svg/SaveCheck.h"

#define XML_DTD // for the limit on entities, which the header else keeps to itself
#include <expat.h>

#include <algorithm>
#include <limits>
#include <memory>
#include <new>
#include <optional>
#include <string>

#include "svg/Names.h"
#include "svg/Values.h"

namespace easel::svg {

namespace {

constexpr std::size_t kParsedAtOnce = std::size_t{1} << 24;

[[noreturn]] void refuse(const std::string& what) {
    throw DamageError("nothing was saved, because saving would damage the drawing: " + what);
}

std::string placeIn(std::string_view text, std::size_t at) {
    const std::string_view before = text.substr(0, at);
    const std::size_t lineStart = before.rfind('\n') + 1; // 0 in the first line
    return std::to_string(std::count(before.begin(), before.end(), '\n') + 1) + ':' +
           std::to_string(at - lineStart + 1);
}

class Check {
  public:
    Check(const SplicedText& text, const std::vector<Fate>& fates, const Source& source)
        : text_(text), fates_(fates), source_(source), old_(source.text) {}

    void run() const {
        requireAllThere();
        requireWellFormed(skeleton());
    }

  private:
    /// The first element that begins at `at` or behind.
    [[nodiscard]] std::size_t firstElementFrom(std::size_t at) const {
        const auto beginsBefore = [](const Element& element, std::size_t place) { return element.begin < place; };
        const auto found = std::lower_bound(source_.elements.begin(), source_.elements.end(), at, beginsBefore);
        return static_cast<std::size_t>(found - source_.elements.begin());
    }

    void requireAllThere() const {
        std::vector<SplicedText::Piece> copies;
        for (const SplicedText::Piece& piece : text_.pieces())
            if (piece.copied) copies.push_back(piece);
        std::sort(copies.begin(), copies.end(), [](const auto& a, const auto& b) { return a.from < b.from; });
        std::size_t covered = 0;
        for (const SplicedText::Piece& copy : copies) {
            if (copy.from < covered) refuse("bytes written twice at " + placeIn(old_, copy.from));
            requireMayBeMissing(covered, copy.from);
            covered = copy.to;
        }
        requireMayBeMissing(covered, old_.size());
    }

    void requireMayBeMissing(std::size_t from, std::size_t to) const {
        for (std::size_t at = from; at < to;) {
            const std::size_t behind = behindChange(at);
            if (behind == at && !isSpace(old_[at])) refuse("bytes lost at " + placeIn(old_, at));
            at = std::max(behind, at + 1);
        }
    }

    /// The innermost element around a byte; none outside of the root.
    [[nodiscard]] std::optional<std::size_t> elementAround(std::size_t at) const {
        const std::size_t behind = firstElementFrom(at + 1);
        if (behind == 0) return std::nullopt;
        std::size_t index = behind - 1;
        while (index > 0 && source_.elements[index].end <= at)
            index = source_.containers[source_.elements[index].container].element;
        if (source_.elements[index].end <= at) return std::nullopt;
        return index;
    }

    /// The end of what may be missing from `at` on, in one piece.
    [[nodiscard]] std::size_t behindChange(std::size_t at) const {
        if (const std::size_t behind = text_.behindReplaced(at); behind > at) return behind;
        const std::optional<std::size_t> index = elementAround(at);
        if (!index || fates_[*index] == Fate::Kept) return at;
        const Element& element = source_.elements[*index];
        if (fates_[*index] == Fate::Removed) {
            if (isUndrawn(at)) return at;
            const std::size_t next = firstElementFrom(at + 1); // it may be kept elsewhere
            const std::size_t end =
                next < fates_.size() ? std::min(element.end, source_.elements[next].begin) : element.end;
            const auto [undrawn, last] = source_.undrawnIn(at, end);
            return undrawn == last ? end : undrawn->begin;
        }
        if (fates_[*index] == Fate::Rewritten) return element.end;
        if (at < element.tagEnd) return element.tagEnd;
        const bool inEndTag = old_.find('>', at) + 1 == element.end && old_.rfind('<', element.end - 1) <= at;
        return inEndTag && element.after == *index + 1 ? element.end : at;
    }

    [[nodiscard]] bool isUndrawn(std::size_t at) const {
        const auto behind = source_.undrawnIn(0, at + 1).second;
        return behind != source_.undrawn.begin() && (behind - 1)->end > at;
    }

    [[nodiscard]] std::string skeleton() const {
        constexpr std::string_view kStandIn = "<!---->"; // brackets on either side must not come together
        std::string skeleton;
        for (const SplicedText::Piece& piece : text_.pieces()) {
            if (!piece.copied || piece.elsewhere) {
                skeleton += text_.textOf(piece);
                continue;
            }
            std::size_t rest = piece.from;
            for (std::size_t i = firstElementFrom(piece.from); i < fates_.size();) {
                const Element& element = source_.elements[i];
                if (element.begin >= piece.to) break;
                if (i == 0 || element.end > piece.to) { // the root is never left out
                    ++i;
                    continue;
                }
                skeleton.append(old_.substr(rest, element.begin - rest)).append(kStandIn);
                rest = element.end;
                i = element.after;
            }
            skeleton += old_.substr(rest, piece.to - rest);
        }
        return skeleton;
    }

    void requireWellFormed(std::string_view text) const {
        const bool recoded = source_.encoding == Encoding::Utf16Little || source_.encoding == Encoding::Utf16Big;
        const std::unique_ptr<XML_ParserStruct, void (*)(XML_Parser)> parser(
            XML_ParserCreateNS(recoded ? "UTF-8" : nullptr, kNamespaceEnd), XML_ParserFree);
        if (!parser) throw std::bad_alloc();
        // Next to the little that is left of the text the entities in it may look like an attack.
        XML_SetBillionLaughsAttackProtectionMaximumAmplification(parser.get(), std::numeric_limits<float>::max());
        bool last = false;
        while (!last) {
            const std::size_t size = std::min(text.size(), kParsedAtOnce);
            last = size == text.size();
            if (XML_Parse(parser.get(), text.data(), static_cast<int>(size), last) != XML_STATUS_OK)
                refuse(XML_ErrorString(XML_GetErrorCode(parser.get())));
            text.remove_prefix(size);
        }
    }

    const SplicedText& text_;
    const std::vector<Fate>& fates_;
    const Source& source_;
    std::string_view old_;
};

} // namespace

void checkBeforeSaving(const SplicedText& text, const std::vector<Fate>& fates, const Source& source) {
    Check(text, fates, source).run();
}

} // namespace easel::svg
