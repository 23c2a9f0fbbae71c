#pragma once

// Internal to the content model: not installed.

#include <cstddef>
#include <mutex>

namespace OrrinQuiver {

// Fixed-size slots for objects that are made and deleted by the million (the
// items of a header). The global heap keeps a word of bookkeeping before each
// block and rounds it up to 16 bytes; slots lie back to back in slabs of 64
// KiB, so an object costs its own size and its neighbours in position order
// are close in memory. A slab whose slots are all free goes back to the heap
// (one is kept in reserve). Safe to use from any thread.
class ItemSlots
{
public:
    explicit ItemSlots(std::size_t slotSize);
    ItemSlots(const ItemSlots &) = delete;
    ItemSlots &operator=(const ItemSlots &) = delete;

    // A free slot of the size given at construction; throws std::bad_alloc
    // when the heap has no room for a new slab.
    void *take();
    // Frees a slot that take() returned; nothing for nullptr.
    void give(void *slot);

    // Slabs of this size, aligned to it, so a slot finds its slab by masking.
    static constexpr std::size_t SlabBytes = 64 * 1024;

private:
    struct Slab;
    Slab *newSlab();
    void unlinkAvailable(Slab *slab);

    std::size_t m_slotSize;
    std::size_t m_slotsPerSlab;
    // Slabs with a free slot, most recently used first.
    Slab *m_available = nullptr;
    // An empty slab kept back, so that adding and removing one item at a
    // slab's edge does not return memory to the heap and ask for it again.
    Slab *m_reserve = nullptr;
    std::mutex m_mutex;
};

} // namespace OrrinQuiver
