#include "surface/raster/TileMemory.h"
#include "surface/raster/TilesAhead.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <mutex>
#include <new>
#include <sys/mman.h>
#include <system_error>
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
    FreeTile* free = nullptr; // None in a block that was made ahead: the first tile says how large they are.
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
    int all = 0; // with those in use
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

/// Null without memory.
Block* MakeBlock() {
    void* const memory = std::aligned_alloc(kBlockSize, kBlockSize);
    if (memory == nullptr) return nullptr;
    madvise(memory, kBlockSize, MADV_HUGEPAGE); // A wish; without large pages everything works, slower.
    return new (memory) Block;
}

void CutIntoTiles(Block& block, std::size_t size) {
    const std::size_t tiles = (kBlockSize - sizeof(Block)) / size;
    auto* const first = static_cast<std::byte*>(static_cast<void*>(&block)) + sizeof(Block);
    for (std::size_t i = tiles; i-- > 0;)
        block.free = new (first + i * size) FreeTile{block.free};
}

Block* EmptyBlock(Blocks& blocks, std::size_t size) {
    Block* block = blocks.spares;
    if (block) {
        --blocks.spareCount;
        blocks.spares = block->after;
    } else {
        block = MakeBlock();
        if (!block) throw std::bad_alloc();
        ++blocks.all;
    }
    if (!block->free) CutIntoTiles(*block, size);
    return block;
}

/// Keeps an empty block for the next that asks; false if enough are kept.
bool Spare(Blocks& blocks, Block& block) {
    if (blocks.spareCount == kMostSpares) return false;
    block.after = std::exchange(blocks.spares, &block);
    ++blocks.spareCount;
    return true;
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
    if (Spare(blocks, block)) return;
    std::free(&block);
    --blocks.all;
}

namespace {

/// Has the system clear every page of a block.
void Touch(Block& block) {
    constexpr std::size_t kPage = 4096;
    auto* const bytes = static_cast<volatile std::byte*>(static_cast<void*>(&block));
    for (std::size_t at = kPage; at < kBlockSize; at += kPage)
        bytes[at] = std::byte{0};
}

/// Until there are so many blocks; whoever is in more of a hurry makes some of them.
void MakeAhead(const std::stop_token& stop, int all) {
    Blocks& blocks = TheBlocks();
    while (!stop.stop_requested()) {
        {
            const std::lock_guard hold(blocks.lock);
            if (blocks.all >= all) return;
            ++blocks.all;
        }
        Block* const block = MakeBlock();
        if (block) Touch(*block);
        const std::lock_guard hold(blocks.lock);
        if (block && Spare(blocks, *block)) continue;
        std::free(block);
        --blocks.all;
        return;
    }
}

} // namespace

TilesAhead::TilesAhead(std::uint64_t bytes) {
    constexpr int kWorthAThread = 4; // blocks
    Blocks& blocks = TheBlocks();
    const int wanted = static_cast<int>(std::min<std::uint64_t>(bytes / kBlockSize, kMostSpares));
    int all = 0;
    {
        const std::lock_guard hold(blocks.lock);
        if (wanted - blocks.spareCount < kWorthAThread) return;
        all = blocks.all + wanted - blocks.spareCount;
    }
    try {
        thread_ = std::jthread(MakeAhead, all);
    } catch (const std::system_error&) { // No thread.
    }
}

} // namespace pintalux
