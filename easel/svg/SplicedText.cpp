// Copies of neighbouring pieces are one piece. Bytes are copied when somebody asks for the whole text, if ever.
#include "svg/SplicedText.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "svg/Values.h"

namespace easel::svg {

void SplicedText::add(std::string_view text) {
    if (text.empty()) return;
    if (!pieces_.empty() && !pieces_.back().copied)
        pieces_.back().to += text.size();
    else
        pieces_.push_back({added_.size(), added_.size() + text.size(), false, false});
    added_ += text;
    size_ += text.size();
}

void SplicedText::replace(std::size_t from, std::size_t to, std::string text) {
    replaced_[from] = {to, std::move(text)};
}

std::size_t SplicedText::behindReplaced(std::size_t at) const {
    const auto next = replaced_.upper_bound(at);
    return next == replaced_.begin() ? at : std::max(at, std::prev(next)->second.to);
}

void SplicedText::copy(std::size_t from, std::size_t to, bool elsewhere) {
    for (auto at = replaced_.lower_bound(from); at != replaced_.end() && at->second.to <= to; ++at) {
        if (at->first < from) continue; // in one that is replaced as a whole
        copyPiece(from, at->first, elsewhere);
        add(at->second.text);
        from = at->second.to;
    }
    copyPiece(from, to, elsewhere);
}

void SplicedText::copyPiece(std::size_t from, std::size_t to, bool elsewhere) {
    if (from == to) return;
    if (!pieces_.empty() && pieces_.back().copied && pieces_.back().to == from &&
        pieces_.back().elsewhere == elsewhere) {
        pieces_.back().to = to;
    } else {
        // What stood between two brackets and a third one may be gone, but text must not close a section that is not
        // open.
        const std::string_view start = std::string_view(source_).substr(from, std::min<std::size_t>(to - from, 2));
        if (seamWith(start).find("]]>") != std::string::npos) add("<!-- -->");
        pieces_.push_back({from, to, true, elsewhere});
    }
    size_ += to - from;
}

std::string SplicedText::seamWith(std::string_view text) const {
    std::string seam(text);
    for (auto piece = pieces_.rbegin(); piece != pieces_.rend() && seam.size() < text.size() + 2; ++piece) {
        const std::string_view before = textOf(*piece);
        seam.insert(0, before.substr(before.size() - std::min<std::size_t>(before.size(), 2)));
    }
    return seam;
}

std::string SplicedText::cutSpace(std::size_t start) {
    std::string cut;
    while (size_ > start && isSpace(textOf(pieces_.back()).back())) {
        Piece& last = pieces_.back();
        cut += textOf(last).back();
        if (!last.copied) added_.pop_back();
        if (--last.to == last.from) pieces_.pop_back();
        --size_;
    }
    std::reverse(cut.begin(), cut.end());
    return cut;
}

std::string_view SplicedText::textOf(const Piece& piece) const {
    return std::string_view(piece.copied ? source_ : added_).substr(piece.from, piece.to - piece.from);
}

bool SplicedText::isSource() const {
    return pieces_.size() == 1 && pieces_[0].copied && pieces_[0].to - pieces_[0].from == source_.size();
}

std::string SplicedText::joined() const {
    std::string text;
    text.reserve(size_);
    for (const Piece& piece : pieces_) text += textOf(piece);
    return text;
}

} // namespace easel::svg
