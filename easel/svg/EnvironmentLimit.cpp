// Reads limits from environment variables.
#include "svg/EnvironmentLimit.h"

#include <charconv>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <string_view>

namespace easel::svg {

unsigned long limitFromEnvironment(const char* variable, unsigned long usual) {
    constexpr unsigned long kMost = 1'000'000;
    const char* const value = std::getenv(variable);
    if (!value) return usual;
    const std::string_view text(value);
    unsigned long number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error == std::errc() && end == text.data() + text.size() && number >= 1 && number <= kMost) return number;
    throw std::runtime_error(std::string(variable) + " must be a whole number from 1 to " + std::to_string(kMost) +
                             ", not \"" + value + '"');
}

} // namespace easel::svg
