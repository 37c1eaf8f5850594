// Copies of neighbouring pieces are one copy, made when something else follows.
#include "svg/SplicedText.h"

#include <algorithm>

#include "svg/Values.h"

namespace easel::svg {

SplicedText::SplicedText(const std::string& source) : source_(source) {
    text_.reserve(source_.size() + source_.size() / 64 + 4096);
}

void SplicedText::add(std::string_view text) {
    flush();
    text_ += text;
}

void SplicedText::copy(std::size_t from, std::size_t to, bool elsewhere) {
    if (from == to) return;
    const bool goesOn = !copies_.empty() && copies_.back().to == from && copies_.back().elsewhere == elsewhere &&
                        copies_.back().at + (copied_ - copies_.back().from) == text_.size();
    if (goesOn) {
        copies_.back().to = to;
        return;
    }
    flush();
    // What stood between two brackets and a third one may be gone, but text must not close a section that is not open.
    const std::string_view joint = std::string_view(source_).substr(from, std::min<std::size_t>(to - from, 2));
    std::string seam = text_.substr(text_.size() - std::min<std::size_t>(text_.size(), 2));
    if (seam.append(joint).find("]]>") != std::string::npos) text_ += "<!-- -->";
    copies_.push_back({from, to, text_.size(), elsewhere});
    copied_ = from;
}

std::size_t SplicedText::size() {
    flush();
    return text_.size();
}

std::string SplicedText::cutSpace(std::size_t start) {
    flush();
    const std::size_t keep = std::max(text_.find_last_not_of(kSpace) + 1, start); // 0 for nothing but space
    std::string cut = text_.substr(keep);
    text_.resize(keep);
    while (!copies_.empty() && copies_.back().at >= keep) copies_.pop_back();
    if (!copies_.empty()) {
        CopiedBytes& last = copies_.back();
        last.to = std::min(last.to, last.from + (keep - last.at));
        copied_ = last.to;
    }
    return cut;
}

std::string SplicedText::take() {
    flush();
    return std::move(text_);
}

void SplicedText::flush() {
    if (copies_.empty() || copied_ == copies_.back().to) return;
    text_.append(source_, copied_, copies_.back().to - copied_);
    copied_ = copies_.back().to;
}

} // namespace easel::svg
