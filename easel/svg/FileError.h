// What goes wrong with files.
#pragma once

#include <stdexcept>

namespace easel::svg {

/// One line: `FILE:LINE:COLUMN: reason`, or `FILE: reason`.
class FileError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// A document that cannot be written to any file. One line without a file's name.
class UnsavableError : public FileError {
  public:
    using FileError::FileError;
};

} // namespace easel::svg
