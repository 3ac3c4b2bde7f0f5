#pragma once

#include <vector>

/// Notes down the arrays that the program makes and frees while this object lives: the size of a
/// new one, the negative size of a freed one. One at a time, for one thread.
class ArrayAllocations {
  public:
    ArrayAllocations();
    ArrayAllocations(const ArrayAllocations&) = delete;
    ArrayAllocations& operator=(const ArrayAllocations&) = delete;
    ~ArrayAllocations();

    const std::vector<long long>& Get() const { return m_sizes; }

  private:
    std::vector<long long> m_sizes;
};
