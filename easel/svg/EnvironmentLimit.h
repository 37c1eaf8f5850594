// Limits that the user sets for all of Easel.
#pragma once

namespace easel::svg {

/// What an environment variable says, or `usual` where it is not set. Throws std::runtime_error, in words, unless it is
/// a whole number from 1 to a million.
[[nodiscard]] unsigned long limitFromEnvironment(const char* variable, unsigned long usual);

} // namespace easel::svg
