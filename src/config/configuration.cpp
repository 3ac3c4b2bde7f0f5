#include "config/configuration.h"

#include "config/document_file.h"
#include "config/element_path.h"
#include "runtime/invalid_parameter.h"

#include <atlstr.h>

#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <utility>

using tinyxml2::XMLDocument;
using tinyxml2::XMLElement;
using tinyxml2::XMLNode;
using tinyxml2::XMLText;

namespace {

constexpr char defaultDocument[] =
    "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>"
    "\t\t\t\t\t\t"
    "<Config>"
    "\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t"
    "</Config>";

/// An element and how many element siblings stand in front of it.
struct PlacedElement {
    XMLElement* element = nullptr;
    std::uint32_t position = 0;
};

/// Without the element: how many element children there are.
PlacedElement ChildNamed(XMLElement& parent, std::string_view name) {
    PlacedElement child = {parent.FirstChildElement()};
    while (child.element != nullptr && !SameName(child.element->Value(), name)) {
        child.element = child.element->NextSiblingElement();
        ++child.position;
    }
    return child;
}

XMLElement* ChildAt(XMLNode& parent, std::uint32_t position) {
    XMLElement* child = parent.FirstChildElement();
    for (; child != nullptr && position > 0; --position)
        child = child->NextSiblingElement();
    return child;
}

PlacedElement FindPlaced(XMLDocument& document, std::string_view path) {
    PathCut cut = CutPath(path);
    PlacedElement found = {document.FirstChildElement()};
    if (found.element == nullptr || !SameName(found.element->Value(), cut.head)) return {};

    // Meant: an empty name behind the last "." ends the path at the root, but is asked for below
    // it.
    if (cut.tail.empty()) return found;
    do {
        cut = CutPath(cut.tail);
        found = ChildNamed(*found.element, cut.head);
    } while (found.element != nullptr && cut.hasTail);
    return found;
}

XMLElement* AppendElement(XMLNode& parent, std::string_view name) {
    XMLElement* made = parent.GetDocument()->NewElement(std::string(name).c_str());
    parent.InsertEndChild(made);
    return made;
}

/// `made` is set when something was; else it stays as it is.
PlacedElement FindOrCreatePlaced(XMLDocument& document, std::string_view path, bool& made) {
    const auto makeIfMissing = [&made](PlacedElement& wanted, XMLNode& parent,
                                       std::string_view name) {
        if (wanted.element != nullptr) return;
        wanted.element = AppendElement(parent, name);
        made = true;
    };

    PathCut cut = CutPath(path);
    PlacedElement found = {document.FirstChildElement()};
    makeIfMissing(found, document, cut.head);
    if (!SameName(found.element->Value(), cut.head)) return {};

    if (cut.tail.empty()) return found;
    do {
        // Meant: an empty name is made like any other, so "Config.A." gives A a nameless child.
        cut = CutPath(cut.tail);
        XMLElement& parent = *found.element;
        found = ChildNamed(parent, cut.head);
        makeIfMissing(found, parent, cut.head);
    } while (cut.hasTail);
    return found;
}

/// Null when the element has no text.
const char* TextOf(const XMLElement& element) {
    // Meant: a comment or element in front of the text hides it; the library's getter skips
    // comments.
    const XMLNode* first = element.FirstChild();
    const XMLText* text = first != nullptr ? first->ToText() : nullptr;
    return text != nullptr ? text->Value() : nullptr;
}

/// Attributes and all child nodes too; not yet in the tree.
XMLNode* CopyOf(XMLElement& element) {
    XMLNode* copy = element.ShallowClone(element.GetDocument());
    for (XMLNode* child = element.FirstChild(); child != nullptr; child = child->NextSibling()) {
        copy->InsertEndChild(child->DeepClone(element.GetDocument()));
    }
    return copy;
}

}  // namespace

// By value: the path may be `fileName` itself, which is cleared first.
bool Configuration::Load(std::wstring path) {
    document.Clear();
    modified = false;
    fileName.clear();

    ReadDocument(document, CStringA(path.c_str()));
    if (document.ErrorID() == tinyxml2::XML_SUCCESS) {
        fileName = std::move(path);
        return true;
    }

    // Meant: a damaged file is overwritten like a missing one, with no copy kept of it.
    if (document.Parse(defaultDocument, static_cast<size_t>(-1)) != tinyxml2::XML_SUCCESS) {
        return false;
    }
    // Meant: a fallback that could be written leaves `fileName` empty.
    return Save(path);
}

bool Configuration::Save(const std::wstring& path) {
    WriteDocument(document, CStringA(path.c_str()));
    if (document.ErrorID() == tinyxml2::XML_SUCCESS) return true;

    // Meant: the flag falls and the name is taken on failure, and on failure only.
    modified = false;
    fileName = path;
    return false;
}

void Configuration::SaveIfModified() {
    if (modified) Save(fileName);  // Result ignored: nobody is told.
}

XMLElement* Configuration::Find(const std::string& path) {
    return FindPlaced(document, path).element;
}

XMLElement* Configuration::FindOrCreate(const std::string& path) {
    return FindOrCreatePlaced(document, path, modified).element;
}

std::int32_t Configuration::IndexOf(const std::string& path) {
    const PlacedElement found = FindPlaced(document, path);
    return found.element != nullptr ? static_cast<std::int32_t>(found.position) : -1;
}

std::string Configuration::GetString(const std::string& path, std::string defaultValue) {
    const XMLElement* element = Find(path);
    if (element == nullptr) return defaultValue;
    const char* text = TextOf(*element);
    return text != nullptr ? text : "";  // Meant: the default is for a missing element alone.
}

int Configuration::GetInt(const std::string& path, int defaultValue) {
    const XMLElement* element = Find(path);
    const char* text = element != nullptr ? TextOf(*element) : nullptr;
    int value = 0;
    return text != nullptr && sscanf_s(text, "%d", &value) == 1 ? value : defaultValue;
}

void Configuration::SetString(const std::string& path, const char* value) {
    XMLElement* element = FindOrCreate(path);
    if (element == nullptr) return;

    const char* text = TextOf(*element);
    if (SameText(value, text != nullptr ? text : "")) return;
    element->SetText(value);
    modified = true;
}

void Configuration::SetInt(const std::string& path, int value) {
    char text[16] = {};
    _itoa(value, text, 10);
    SetString(path, text);
}

void Configuration::Remove(const std::string& path) {
    XMLElement* element = Find(path);
    if (element == nullptr) return;
    element->Parent()->DeleteChild(element);
    modified = true;
}

void Configuration::MoveTo(const std::string& path, std::uint32_t index) {
    // Meant: not tested for null; a foreign root is a caller's fault.
    const auto [element, position] = FindOrCreatePlaced(document, path, modified);
    XMLNode* parent = element->Parent();
    if (position == index) return;

    // Meant: counted with the element still there, so later moves land one place short.
    XMLElement* entry = index > 0 ? ChildAt(*parent, index - 1) : nullptr;
    XMLNode* copy = CopyOf(*element);
    parent->DeleteChild(element);
    if (index == 0) {
        parent->InsertFirstChild(copy);
    } else {
        if (entry == nullptr) RaiseInvalidParameter();
        // Meant: behind the deleted element nothing is inserted, and the moved element is lost. It
        // lies in freed memory, so its place tells it, not its parent.
        const bool entryLinked = index - 1 != position && entry->Parent() == parent;
        if (copy->GetDocument() == parent->GetDocument() && entryLinked && entry != copy) {
            parent->InsertAfterChild(entry, copy);
        }
    }
    modified = true;
}
