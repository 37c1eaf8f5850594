// What holds until the end of a block, however that ends.
#pragma once

#include <utility>

namespace kzo::utils {

/// Another value, until the end of a block.
template <class T> class Temporary {
  public:
    Temporary(T& place, T value) : place_(place), outer_(std::exchange(place, std::move(value))) {}
    ~Temporary() { place_ = std::move(outer_); }
    Temporary(const Temporary&) = delete;
    Temporary& operator=(const Temporary&) = delete;

  private:
    T& place_;
    T outer_;
};

/// Does its work at the end of a block. The work must not throw.
template <class Work> class Finally {
  public:
    explicit Finally(Work work) : work_(std::move(work)) {}
    ~Finally() { work_(); }
    Finally(const Finally&) = delete;
    Finally& operator=(const Finally&) = delete;

  private:
    Work work_;
};

} // namespace kzo::utils
