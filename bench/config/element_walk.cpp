#include "config/element_walk.h"

#include <cstring>

using tinyxml2::XMLElement;

namespace {

bool HasName(const XMLElement* element, const char* name, size_t length) {
    const char* value = element->Value();
    return std::strncmp(value, name, length) == 0 && value[length] == '\0';
}

/// The name at `text` ends at the next dot or with the path.
size_t NameLength(const char* text) {
    const char* dot = std::strchr(text, '.');
    return dot != nullptr ? static_cast<size_t>(dot - text) : std::strlen(text);
}

template <typename MakeMissing>
Walked Walk(tinyxml2::XMLDocument& document, const std::string& path, MakeMissing makeMissing) {
    const char* name = path.c_str();
    size_t length = NameLength(name);
    Walked walked = {document.FirstChildElement()};
    if (walked.element == nullptr || !HasName(walked.element, name, length)) return {};
    while (name[length] == '.') {
        name += length + 1;
        length = NameLength(name);
        XMLElement* parent = walked.element;
        walked = {parent->FirstChildElement()};
        while (walked.element != nullptr && !HasName(walked.element, name, length)) {
            walked.element = walked.element->NextSiblingElement();
            ++walked.position;
        }
        if (walked.element == nullptr) walked.element = makeMissing(parent, name, length);
        if (walked.element == nullptr) return {};
    }
    return walked;
}

}  // namespace

Walked WalkByHand(tinyxml2::XMLDocument& document, const std::string& path) {
    return Walk(document, path,
                [](XMLElement*, const char*, size_t) -> XMLElement* { return nullptr; });
}

Walked WalkOrMakeByHand(tinyxml2::XMLDocument& document, const std::string& path) {
    return Walk(document, path, [](XMLElement* parent, const char* name, size_t length) {
        XMLElement* made = parent->GetDocument()->NewElement(std::string(name, length).c_str());
        parent->InsertEndChild(made);
        return made;
    });
}
