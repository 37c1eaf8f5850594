// The font families of the machine, as fontconfig knows them.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace easel::session {

class Fonts {
  public:
    void clear() { families_.reset(); }
    void load();                                              ///< anew, also what has been installed since
    [[nodiscard]] const std::vector<std::string>& families(); ///< in alphabetical order; loads them the first time

  private:
    std::optional<std::vector<std::string>> families_;
};

} // namespace easel::session
