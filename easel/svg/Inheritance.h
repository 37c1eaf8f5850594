// What an element passes on to those inside it.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "model/Types.h"
#include "svg/Attributes.h"

namespace easel::svg {

/// The style of an element around which `style` holds. Properties that go wrong count as absent.
[[nodiscard]] model::Style styleOf(const Attributes& attributes, model::Style style, const Units& units);

/// Adds what an element passes on and no style of the model can say.
void inherit(std::vector<std::pair<Name, std::string>>& inherited, const Attributes& attributes);

} // namespace easel::svg
