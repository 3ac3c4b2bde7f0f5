#pragma once

#include <tinyxml2.h>

#include <string>

/// The path of element names walked by hand, with nothing but the XML library: the measure for the
/// store's own walk.
struct Walked {
    tinyxml2::XMLElement* element = nullptr;  ///< null: there is none
    unsigned position = 0;                    ///< among its parent's element children
};

/// `path` begins with the root's name and has none that is empty.
Walked WalkByHand(tinyxml2::XMLDocument& document, const std::string& path);

/// The same, and makes what is missing behind its siblings.
Walked WalkOrMakeByHand(tinyxml2::XMLDocument& document, const std::string& path);
