// Puts the text of a document together: what was read and has not changed is copied from its source, in the order of
// the document; what has changed or is new is written in between.
#pragma once

#include <string>

#include "model/Document.h"
#include "svg/Definitions.h"
#include "svg/Source.h"
#include "svg/SplicedText.h"

namespace easel::svg {

/// Makes a definition of the source hold something else, wherever its bytes are copied.
void replaceContent(SplicedText& text, const Source& source, const Definition& definition, std::string content);

/// The text, with these definitions, checked; it needs the source. Throws FileError for what could not be read again;
/// DamageError, see SaveCheck.h.
[[nodiscard]] SplicedText spliced(model::Document& document, const Source& source, const MadeDefinitions& definitions);

} // namespace easel::svg
