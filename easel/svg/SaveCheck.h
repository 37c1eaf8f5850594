// Checks a text before it replaces a file: what was not to be changed has kept its bytes, and an XML parser takes it.
// Knows nothing of how the text came about, only which pieces of it were copied.
#pragma once

#include <cstdint>
#include <vector>

#include "svg/FileError.h"
#include "svg/Source.h"
#include "svg/SplicedText.h"

namespace easel::svg {

/// What has become of an element since it was read.
enum class Fate : std::uint8_t { Kept, Changed, Rewritten, Removed };

/// The text to be written would lose something, or could not be read again. A fault of ours, not of the drawing.
class DamageError : public UnsavableError {
  public:
    using UnsavableError::UnsavableError;
};

/// Throws DamageError. `fates` has one entry an element. An element that was kept has all its bytes in the text, one
/// that was changed all but its start tag and the name in its end tag; of one that was rewritten nothing is left, and
/// of one that was removed what draws nothing itself; besides these nothing but white space may be missing, and nothing
/// is there twice.
void checkBeforeSaving(const SplicedText& text, const std::vector<Fate>& fates, const Source& source);

} // namespace easel::svg
