// The one exception that the session's faces show to the user: a single line that names what, where and why.
#pragma once

#include <stdexcept>

namespace easel::session {

class Error : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

} // namespace easel::session
