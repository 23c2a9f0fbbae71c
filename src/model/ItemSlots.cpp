#include "model/ItemSlots_p.h"

#include <cstdint>
#include <cstdlib>
#include <new>

namespace OrrinQuiver {

// The head of a slab; the slots follow it.
struct ItemSlots::Slab
{
    // Neighbours in the list of slabs with a free slot.
    Slab *prev = nullptr;
    Slab *next = nullptr;
    bool listed = false;
    // Slots given back, linked through their first word.
    void *freed = nullptr;
    // Slots handed out now, and slots handed out at least once (the ones
    // after them have never been touched).
    std::size_t used = 0;
    std::size_t carved = 0;
};

namespace {
// Where the first slot of a slab begins: past the head (the constructor
// checks that it fits), at a cache-line boundary.
constexpr std::size_t FirstSlotOffset = 64;
} // namespace

ItemSlots::ItemSlots(std::size_t slotSize)
    : m_slotSize((slotSize + alignof(void *) - 1) / alignof(void *) * alignof(void *))
    , m_slotsPerSlab((SlabBytes - FirstSlotOffset) / m_slotSize)
{
    static_assert(sizeof(Slab) <= FirstSlotOffset && FirstSlotOffset % alignof(std::max_align_t) == 0);
}

ItemSlots::Slab *ItemSlots::newSlab()
{
    void *memory = std::aligned_alloc(SlabBytes, SlabBytes);
    if (!memory)
        throw std::bad_alloc();
    return new (memory) Slab;
}

void ItemSlots::unlinkAvailable(Slab *slab)
{
    if (slab->prev)
        slab->prev->next = slab->next;
    else
        m_available = slab->next;
    if (slab->next)
        slab->next->prev = slab->prev;
    slab->prev = slab->next = nullptr;
    slab->listed = false;
}

void *ItemSlots::take()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    Slab *slab = m_available;
    if (!slab) {
        slab = m_reserve ? m_reserve : newSlab();
        m_reserve = nullptr;
        slab->listed = true;
        m_available = slab;
    }
    void *slot;
    if (slab->freed) {
        slot = slab->freed;
        slab->freed = *static_cast<void **>(slot);
    } else {
        slot = reinterpret_cast<char *>(slab) + FirstSlotOffset + slab->carved++ * m_slotSize;
    }
    if (++slab->used == m_slotsPerSlab)
        unlinkAvailable(slab);
    return slot;
}

void ItemSlots::give(void *slot)
{
    if (!slot)
        return;
    const std::lock_guard<std::mutex> lock(m_mutex);
    auto *slab = reinterpret_cast<Slab *>(reinterpret_cast<std::uintptr_t>(slot) & ~std::uintptr_t(SlabBytes - 1));
    if (--slab->used == 0) {
        if (slab->listed)
            unlinkAvailable(slab);
        if (m_reserve) {
            slab->~Slab();
            std::free(slab);
        } else {
            // Start the kept slab afresh: all its slots are free again.
            slab->freed = nullptr;
            slab->carved = 0;
            m_reserve = slab;
        }
        return;
    }
    *static_cast<void **>(slot) = slab->freed;
    slab->freed = slot;
    if (!slab->listed) {
        slab->listed = true;
        slab->next = m_available;
        if (m_available)
            m_available->prev = slab;
        m_available = slab;
    }
}

} // namespace OrrinQuiver
