#include "config/element_path.h"

#include <cstring>

bool SameText(const char* left, const char* right) {
    constexpr size_t limit = 0x7FFFFFFF;
    return left == right || std::strncmp(left, right, limit) == 0;
}
