// A value with several owners. Knows no node and no document.
#pragma once

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <boost/smart_ptr/intrusive_ref_counter.hpp>

#include <utility>

namespace easel::model {

/// A value, or nothing. A copy shares the value until one of the owners writes to it. All owners are in one thread.
template <class T> class Shared {
  public:
    Shared() = default;
    explicit Shared(T value) : block_(new Block(std::move(value))) {}

    explicit operator bool() const { return block_ != nullptr; }
    const T& operator*() const { return block_->value; }
    const T* operator->() const { return &block_->value; }
    /// Whether both share one value, without looking at it.
    [[nodiscard]] bool isSameAs(const Shared& other) const { return block_ == other.block_; }

    [[nodiscard]] std::size_t ownerCount() const { return block_ ? block_->use_count() : 0; }

    /// The value for writing: the owner's own copy, if there are others.
    [[nodiscard]] T& writable() {
        if (block_->use_count() > 1) block_ = new Block(block_->value);
        return block_->value;
    }

    /// Gives all owners another value: for what is found out, not changed.
    void setForAll(T value) { block_->value = std::move(value); }

    /// By value.
    friend bool operator==(const Shared& a, const Shared& b) {
        return a.block_ == b.block_ || (a.block_ && b.block_ && a.block_->value == b.block_->value);
    }

  private:
    struct Block : boost::intrusive_ref_counter<Block, boost::thread_unsafe_counter> {
        explicit Block(T of) : value(std::move(of)) {}

        T value;
    };

    boost::intrusive_ptr<Block> block_;
};

} // namespace easel::model
