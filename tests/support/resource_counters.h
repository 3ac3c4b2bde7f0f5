#pragma once

#include <cstddef>
#include <iosfwd>

/// What this process holds at one moment. Compare two readings, the first taken after some warm-up
/// rounds: the platform fills caches of its own in the first ones.
struct ResourceCounts {
    size_t heapBlocks = 0;     ///< busy blocks over all heaps of the process
    size_t heapBytes = 0;      ///< bytes in those blocks
    size_t kernelHandles = 0;  ///< open handles of every kind: files, keys, events, threads
    size_t gdiObjects = 0;     ///< device contexts left out: they follow the platform's cache
    size_t userObjects = 0;    ///< windows, menus, icons
    size_t threads = 0;
    size_t tlsSlots = 0;  ///< allocated slots of thread-local storage

    bool operator==(const ResourceCounts& other) const;
};

/// For the messages of a failed comparison.
std::ostream& operator<<(std::ostream& stream, const ResourceCounts& counts);

/// Reads all counters. Takes some milliseconds; call it with no other thread at work on the heap.
ResourceCounts CountResources();
