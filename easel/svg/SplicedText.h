// A text that is put together from pieces of another one, which stays where it is, and from new ones.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace easel::svg {

class SplicedText {
  public:
    struct Piece {
        std::size_t from; ///< in the source, or in what was added
        std::size_t to;
        bool copied;
        bool elsewhere; ///< copied below another element than it was read in
    };

    explicit SplicedText(const std::string& source) : source_(source) {}

    /// From now on `text` stands for this part of the source, which is copied as a whole, if at all.
    void replace(std::size_t from, std::size_t to, std::string text);
    void add(std::string_view text);
    void copy(std::size_t from, std::size_t to, bool elsewhere = false);
    [[nodiscard]] std::size_t size() const { return size_; }
    /// Takes the white space off the end, as far back as `start`.
    std::string cutSpace(std::size_t start);

    [[nodiscard]] const std::vector<Piece>& pieces() const { return pieces_; }
    [[nodiscard]] std::string_view textOf(const Piece& piece) const;
    /// Behind the part that is replaced and contains `at`; `at` where none does.
    [[nodiscard]] std::size_t behindReplaced(std::size_t at) const;
    [[nodiscard]] bool isSource() const; ///< whether all of the source was copied, and nothing else
    [[nodiscard]] std::string joined() const;

  private:
    struct Replaced {
        std::size_t to;
        std::string text;
    };

    void copyPiece(std::size_t from, std::size_t to, bool elsewhere);
    [[nodiscard]] std::string seamWith(std::string_view text) const;

    const std::string& source_;
    std::map<std::size_t, Replaced> replaced_; // by where they begin
    std::string added_;
    std::vector<Piece> pieces_;
    std::size_t size_ = 0;
};

} // namespace easel::svg
