// How art is blended, overprinted and what plug-ins keep with it: read from attributes, and as the values that are
// written.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "model/Extras.h"
#include "model/Settings.h"
#include "model/Types.h"
#include "svg/Attributes.h"

namespace easel::svg {

/// Values that go wrong count as absent.
[[nodiscard]] model::Extras readExtras(const Attributes& attributes);
[[nodiscard]] std::vector<model::Artboard> readArtboards(const Attributes& root); ///< none where none are said
[[nodiscard]] model::Units rulerUnits(std::string_view width); ///< those in which the page is measured
void readOverprint(model::Style& style, const Attributes& attributes);

[[nodiscard]] std::string opacityText(double opacity);
[[nodiscard]] std::string_view blendModeText(model::BlendMode mode);
[[nodiscard]] std::string_view knockoutText(model::Knockout knockout); ///< empty for the usual one
[[nodiscard]] std::string kindText(const model::Extras& extras);       ///< empty for a plain group
[[nodiscard]] std::string_view overprintText(const model::Style& style);
[[nodiscard]] std::string artboardsText(const std::vector<model::Artboard>& artboards); ///< JSON, empty for none
[[nodiscard]] std::string dataText(const model::Dictionary& dictionary); ///< JSON; empty for an empty one

} // namespace easel::svg
