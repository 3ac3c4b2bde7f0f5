#pragma once

#include <cstddef>
#include <string_view>

/// A path of element names, cut at its first ".". The parts lie in the path's own text.
struct PathCut {
    std::string_view head;  ///< what stands before the "."; the whole path when there is none
    std::string_view tail;  ///< what stands behind it; empty when there is none
    bool hasTail = false;   ///< there was a "."; tells "A." from "A"
};

/// Cuts off the first name. Nothing is escaped, indexed or filtered: ".A" has an empty head.
inline PathCut CutPath(std::string_view path) {
    size_t dot = 0;
    while (dot < path.size() && path[dot] != '.')
        ++dot;
    if (dot == path.size()) return {path, path.substr(dot), false};
    return {path.substr(0, dot), path.substr(dot + 1), true};
}

/// Whole, byte by byte, case-sensitive; the bytes are in no particular encoding. Neither may be
/// null unless both are.
bool SameText(const char* left, const char* right);

/// As `SameText`, for a name out of a `PathCut`, which also ends at a zero character. `text` is not
/// null. Asked once for each sibling on a path: names are short, and a call of the C runtime would
/// cost more than the comparison.
inline bool SameName(const char* text, std::string_view name) {
    size_t same = 0;
    while (same < name.size() && text[same] == name[same] && text[same] != '\0')
        ++same;
    return text[same] == '\0' && (same == name.size() || name[same] == '\0');
}
