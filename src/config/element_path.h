#pragma once

#include <string>

/// A path of element names, cut at its first ".".
struct PathCut {
    std::string head;      ///< what stands before the "."; the whole path when there is none
    std::string tail;      ///< what stands behind it; empty when there is none
    bool hasTail = false;  ///< there was a "."; tells "A." from "A"
};

/// Cuts off the first name. Nothing is escaped, indexed or filtered: ".A" has an empty head.
PathCut CutPath(const std::string& path);

/// Whole, byte by byte, case-sensitive; the bytes are in no particular encoding. Neither may be
/// null unless both are.
bool SameText(const char* left, const char* right);
