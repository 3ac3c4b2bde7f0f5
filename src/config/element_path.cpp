#include "config/element_path.h"

#include <cstring>

PathCut CutPath(const std::string& path) {
    const size_t dot = path.find('.');
    if (dot == std::string::npos) return {path, {}, false};
    return {path.substr(0, dot), path.substr(dot + 1), true};
}

bool SameText(const char* left, const char* right) {
    constexpr size_t limit = 0x7FFFFFFF;
    return left == right || std::strncmp(left, right, limit) == 0;
}
