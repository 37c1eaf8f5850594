// Memory that plug-ins hold: blocks and relocatable handles. Each is checked against a table when freed.
#pragma once

#include <cstddef>
#include <memory>
#include <unordered_map>

namespace easel::session {

class Memory {
  public:
    [[nodiscard]] void* allocateBlock(std::size_t size);
    /// False when there is no such block.
    bool freeBlock(void* block) { return blocks_.erase(block) == 1; }

    /// A handle points to a pointer to the block.
    [[nodiscard]] void** newHandle(std::size_t size);
    bool disposeHandle(void** handle) { return handles_.erase(handle) == 1; }

    [[nodiscard]] std::size_t blocksInUse() const { return blocks_.size() + handles_.size(); }

  private:
    struct MasterPointer {
        void* block = nullptr;
        std::unique_ptr<std::byte[]> bytes;
    };

    std::unordered_map<void*, std::unique_ptr<std::byte[]>> blocks_;
    std::unordered_map<void*, std::unique_ptr<MasterPointer>> handles_;
};

} // namespace easel::session
