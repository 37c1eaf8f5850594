// Checks a text before it replaces a file: what was not to be changed has kept its bytes, and an XML parser takes it.
// Knows nothing of how the text came about, only which pieces of it are said to be copied.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "svg/FileError.h"
#include "svg/Source.h"

namespace easel::svg {

/// Bytes of the source's text from `from` up to `to`, copied to `at`.
struct CopiedBytes {
    std::size_t from;
    std::size_t to;
    std::size_t at;
    bool elsewhere; ///< below another element than it was read in
};

/// What has become of an element since it was read.
enum class Fate : std::uint8_t { Kept, Changed, Removed };

/// The text to be written would lose something, or could not be read again. A fault of ours, not of the drawing.
class DamageError : public FileError {
  public:
    using FileError::FileError;
};

/// Throws DamageError. `copies` stand in the order of `text`; `fates` has one entry an element. An element that was
/// kept has all its bytes in the text, one that was changed all but its start tag and the name in its end tag; besides
/// these nothing but white space may be missing, and nothing is there twice.
void checkBeforeSaving(std::string_view text, const std::vector<CopiedBytes>& copies, const std::vector<Fate>& fates,
                       const Source& source);

} // namespace easel::svg
