#pragma once

#include <iosfwd>

/// What this process holds at one moment, or by how much two moments differ. Take the first of two
/// readings after some warm-up rounds: the platform fills caches of its own in the first ones.
struct ResourceCounts {
    long long heapBlocks = 0;     ///< busy blocks over all heaps of the process
    long long heapBytes = 0;      ///< bytes in those blocks
    long long kernelHandles = 0;  ///< open handles of every kind: files, keys, events, threads
    long long gdiObjects = 0;     ///< device contexts left out: they follow the platform's cache
    long long userObjects = 0;    ///< windows, menus, icons
    long long threads = 0;
    long long tlsSlots = 0;  ///< allocated slots of thread-local storage

    bool operator==(const ResourceCounts& other) const;
    /// Counter by counter.
    ResourceCounts operator-(const ResourceCounts& earlier) const;
    ResourceCounts operator*(int rounds) const;
};

/// "heap blocks 0, heap bytes 0, ..."
std::ostream& operator<<(std::ostream& stream, const ResourceCounts& counts);

/// Reads all counters. Takes some milliseconds; call it with no other thread at work on the heap.
ResourceCounts CountResources();
