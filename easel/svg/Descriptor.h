// An open file of the system, closed at the end of the scope.
#pragma once

#include <unistd.h>

#include <utility>

namespace easel::svg {

class Descriptor {
  public:
    explicit Descriptor(int number = -1) : number_(number) {}
    ~Descriptor() {
        if (number_ >= 0) ::close(number_);
    }
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }

    [[nodiscard]] int get() const { return number_; } ///< below 0: none

  private:
    int number_;
};

} // namespace easel::svg
