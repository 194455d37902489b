#include "surface/raster/TileMemory.h"

#include <cstdint>
#include <cstdlib>
#include <mutex>
#include <new>
#include <sys/mman.h>
#include <utility>

namespace pintalux {

namespace {

constexpr std::size_t kBlockSize = std::size_t{2} << 20;
constexpr std::size_t kAlignment = 64;

struct FreeTile {
    FreeTile* next;
};

// Stands at the start of each block; a tile finds it by its address.
struct alignas(kAlignment) Block {
    Block* before = nullptr;
    Block* after = nullptr;
    FreeTile* free = nullptr;
    int used = 0;
};

// Empty blocks that are kept, 96 megabytes: the next operation on a photograph starts on memory that the last
// one has touched, where fresh memory from the system costs more than most operations themselves.
constexpr int kMostSpares = 48;

// The blocks that have room, those that are empty, and the lock over all of them.
struct Blocks {
    std::mutex lock;
    Block* withRoom = nullptr;
    Block* spares = nullptr; // Joined by `after`.
    int spareCount = 0;
};

Blocks& TheBlocks() {
    static Blocks& blocks = *new Blocks; // Never destroyed: bitmaps may live to the very end.
    return blocks;
}

Block* BlockOf(void* tile) {
    const auto inBlock = reinterpret_cast<std::uintptr_t>(tile) % kBlockSize;
    return reinterpret_cast<Block*>(static_cast<std::byte*>(tile) - inBlock);
}

void Link(Blocks& blocks, Block& block) {
    block.before = nullptr;
    block.after = blocks.withRoom;
    if (blocks.withRoom) blocks.withRoom->before = &block;
    blocks.withRoom = &block;
}

void Unlink(Blocks& blocks, Block& block) {
    (block.before ? block.before->after : blocks.withRoom) = block.after;
    if (block.after) block.after->before = block.before;
}

Block* MakeBlock(std::size_t size) {
    void* const memory = std::aligned_alloc(kBlockSize, kBlockSize);
    if (memory == nullptr) throw std::bad_alloc();
    madvise(memory, kBlockSize, MADV_HUGEPAGE); // A wish; without large pages everything works, slower.
    auto* const block = new (memory) Block;
    const std::size_t tiles = (kBlockSize - sizeof(Block)) / size;
    auto* const first = static_cast<std::byte*>(memory) + sizeof(Block);
    for (std::size_t i = tiles; i-- > 0;)
        block->free = new (first + i * size) FreeTile{block->free};
    return block;
}

Block* EmptyBlock(Blocks& blocks, std::size_t size) {
    if (!blocks.spares) return MakeBlock(size);
    --blocks.spareCount;
    return std::exchange(blocks.spares, blocks.spares->after);
}

} // namespace

void* TakeTileMemory(std::size_t size) {
    Blocks& blocks = TheBlocks();
    const std::lock_guard hold(blocks.lock);
    if (!blocks.withRoom) Link(blocks, *EmptyBlock(blocks, size));
    Block& block = *blocks.withRoom;
    FreeTile* const tile = block.free;
    block.free = tile->next;
    ++block.used;
    if (!block.free) Unlink(blocks, block);
    return tile;
}

void GiveTileMemory(void* tile) noexcept {
    Blocks& blocks = TheBlocks();
    const std::lock_guard hold(blocks.lock);
    Block& block = *BlockOf(tile);
    if (!block.free) Link(blocks, block);
    block.free = new (tile) FreeTile{block.free};
    if (--block.used > 0) return;
    Unlink(blocks, block);
    if (blocks.spareCount == kMostSpares) return std::free(&block);
    block.after = std::exchange(blocks.spares, &block);
    ++blocks.spareCount;
}

} // namespace pintalux
