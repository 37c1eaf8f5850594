// What is known about the calls of the host that have been made: how many, and what was refused last. A test can have a
// call of its choice refused.
#pragma once

#include <cstdint>
#include <string_view>

namespace kzo::plugin::host {

class Monitor {
  public:
    /// Counts a call; false when it is the one that shall be refused.
    [[nodiscard]] bool admits() { return ++calls_ != refuseAt_; }
    void refused(std::string_view operation, std::int32_t error) {
        operation_ = operation;
        error_ = error;
    }

    [[nodiscard]] std::uint64_t calls() const { return calls_; }
    /// The last operation that was refused, as "Suite::Operation", and the host's error code.
    [[nodiscard]] std::string_view refusedOperation() const { return operation_; }
    [[nodiscard]] std::int32_t refusedError() const { return error_; }

    /// Starts counting anew; the `call`-th call from here on, counted from 1, is refused. 0 refuses none.
    void reset(std::uint64_t call = 0) { *this = Monitor(call); }

    explicit constexpr Monitor(std::uint64_t refuseAt = 0) : refuseAt_(refuseAt) {}

  private:
    std::uint64_t calls_ = 0;
    std::uint64_t refuseAt_;
    std::string_view operation_;
    std::int32_t error_ = 0;
};

[[nodiscard]] inline Monitor& monitor() {
    static constinit Monitor theMonitor;
    return theMonitor;
}

} // namespace kzo::plugin::host
