// What goes wrong with files.
#pragma once

#include <stdexcept>

namespace easel::svg {

/// One line: `FILE:LINE:COLUMN: reason`, or `FILE: reason`.
class FileError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

} // namespace easel::svg
