// A text that is put together from pieces of another one and from new ones, and knows which is which.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "svg/SaveCheck.h"

namespace easel::svg {

class SplicedText {
  public:
    explicit SplicedText(const std::string& source);

    void add(std::string_view text);
    /// `elsewhere`: below another element than it was read in.
    void copy(std::size_t from, std::size_t to, bool elsewhere);
    [[nodiscard]] std::size_t size();
    /// Takes the white space off the end, as far back as `start`.
    std::string cutSpace(std::size_t start);

    [[nodiscard]] std::string take();
    [[nodiscard]] const std::vector<CopiedBytes>& copies() const { return copies_; }

  private:
    void flush();

    const std::string& source_;
    std::string text_;
    std::vector<CopiedBytes> copies_;
    std::size_t copied_ = 0; // how far into the source the last of these has been appended
};

} // namespace easel::svg
