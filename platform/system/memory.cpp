// Global memory: handles that stay while their blocks move.

#include "platform/memory.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <mutex>
#include <new>
#include <unordered_map>

#include "base/scratch.h"

namespace {

struct Block {
    std::unique_ptr<void, kv::FreeBytes> bytes;
    std::size_t size = 0;
    unsigned int locks = 0;
};

// A block stays where it is while its bytes move, so its address serves as the handle.
struct Table {
    std::mutex mutex;
    std::unordered_map<HGLOBAL, std::unique_ptr<Block>> blocks;

    Block* Find(HGLOBAL handle) const {
        const auto found = blocks.find(handle);
        return found != blocks.end() ? found->second.get() : nullptr;
    }
};

// Never destroyed: blocks may be freed by destructors that run after this file's would.
Table& TheTable() {
    static Table& table = *new Table;
    return table;
}

// Resizes to a size that malloc can refuse but never misread; size 0 holds no bytes.
bool Resize(Block& block, std::size_t size, bool zero) {
    if (size > static_cast<std::size_t>(PTRDIFF_MAX)) {
        return false;
    }
    if (size == 0) {
        block.bytes.reset();
    } else {
        const bool fresh = block.bytes == nullptr && zero;
        void* bytes = fresh ? std::calloc(size, 1) : std::realloc(block.bytes.get(), size);
        if (bytes == nullptr) {
            return false;
        }
        static_cast<void>(block.bytes.release());
        block.bytes.reset(bytes);
        if (zero && !fresh && size > block.size) {
            std::memset(static_cast<char*>(bytes) + block.size, 0, size - block.size);
        }
    }
    block.size = size;
    return true;
}

}  // namespace

HGLOBAL GlobalAlloc(UINT flags, std::size_t size) {
    try {
        auto block = std::make_unique<Block>();
        if (!Resize(*block, size, (flags & GMEM_ZEROINIT) != 0)) {
            return nullptr;
        }
        Table& table = TheTable();
        const std::lock_guard hold(table.mutex);
        HGLOBAL handle = block.get();
        table.blocks.emplace(handle, std::move(block));
        return handle;
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

HGLOBAL GlobalReAlloc(HGLOBAL handle, std::size_t size, UINT flags) {
    Table& table = TheTable();
    const std::lock_guard hold(table.mutex);
    Block* block = table.Find(handle);
    if (block == nullptr || (block->locks > 0 && (flags & GMEM_MOVEABLE) == 0)) {
        return nullptr;
    }
    return Resize(*block, size, (flags & GMEM_ZEROINIT) != 0) ? handle : nullptr;
}

void* GlobalLock(HGLOBAL handle) {
    Table& table = TheTable();
    const std::lock_guard hold(table.mutex);
    Block* block = table.Find(handle);
    if (block == nullptr || block->size == 0) {
        return nullptr;
    }
    ++block->locks;
    return block->bytes.get();
}

bool GlobalUnlock(HGLOBAL handle) {
    Table& table = TheTable();
    const std::lock_guard hold(table.mutex);
    Block* block = table.Find(handle);
    if (block == nullptr || block->locks == 0) {
        return false;
    }
    return --block->locks > 0;
}

std::size_t GlobalSize(HGLOBAL handle) {
    Table& table = TheTable();
    const std::lock_guard hold(table.mutex);
    const Block* block = table.Find(handle);
    return block != nullptr ? block->size : 0;
}

HGLOBAL GlobalFree(HGLOBAL handle) {
    Table& table = TheTable();
    const std::lock_guard hold(table.mutex);
    return table.blocks.erase(handle) == 1 ? nullptr : handle;
}
