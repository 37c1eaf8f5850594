// The suites as the session knows them: plug-ins acquire them, and give them back before the end.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "hostapi/SPBasic.h"

namespace easel::session {

class Suites {
  public:
    Suites() = default;
    virtual ~Suites() = default;
    Suites(const Suites&) = delete;
    Suites& operator=(const Suites&) = delete;

    /// The suite that comes with every message; all others are acquired through it.
    [[nodiscard]] virtual const SPBasicSuite& basic() const = 0;
    /// The names of those that are still acquired. None counts as acquired from now on.
    [[nodiscard]] virtual std::vector<std::string> takeUnreleased() = 0;
};

/// With all functions in place. Defined by those who implement the suites.
[[nodiscard]] std::unique_ptr<Suites> makeSuites();

} // namespace easel::session
