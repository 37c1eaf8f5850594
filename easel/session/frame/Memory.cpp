// Allocation and its table.
#include "session/frame/Memory.h"

namespace easel::session {

void* Memory::allocateBlock(std::size_t size) {
    auto bytes = std::make_unique<std::byte[]>(size);
    void* const block = bytes.get();
    blocks_.emplace(block, std::move(bytes));
    return block;
}

void** Memory::newHandle(std::size_t size) {
    auto master = std::make_unique<MasterPointer>();
    master->bytes = std::make_unique<std::byte[]>(size);
    master->block = master->bytes.get();
    void** const handle = &master->block;
    handles_.emplace(handle, std::move(master));
    return handle;
}

} // namespace easel::session
