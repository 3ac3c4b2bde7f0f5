#include "config/configuration.h"

#include "config/document_file.h"
#include "config/element_path.h"
#include "runtime/invalid_parameter.h"

#include <atlstr.h>

#include <cstdio>
#include <cstdlib>
#include <utility>
#include <vector>

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

XMLElement* ChildNamed(XMLElement& parent, const char* name) {
    XMLElement* child = parent.FirstChildElement();
    while (child != nullptr && !SameText(child->Value(), name)) {
        child = child->NextSiblingElement();
    }
    return child;
}

/// Null when the element has no text.
const char* TextOf(const XMLElement& element) {
    // Meant: a comment or element in front of the text hides it; the library's getter skips
    // comments.
    const XMLNode* first = element.FirstChild();
    const XMLText* text = first != nullptr ? first->ToText() : nullptr;
    return text != nullptr ? text->Value() : nullptr;
}

std::uint32_t PositionAmongElements(const XMLElement& element) {
    std::uint32_t position = 0;
    for (const XMLElement* before = element.PreviousSiblingElement(); before != nullptr;
         before = before->PreviousSiblingElement()) {
        ++position;
    }
    return position;
}

std::vector<XMLElement*> ElementChildren(XMLNode& parent) {
    std::vector<XMLElement*> children;
    for (XMLElement* child = parent.FirstChildElement(); child != nullptr;
         child = child->NextSiblingElement()) {
        children.push_back(child);
    }
    return children;
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
    PathCut cut = CutPath(path);
    XMLElement* element = document.FirstChildElement();
    if (element == nullptr || !SameText(element->Value(), cut.head.c_str())) return nullptr;

    // Meant: an empty name behind the last "." ends the path at the root, but is asked for below
    // it.
    if (cut.tail.empty()) return element;
    do {
        cut = CutPath(cut.tail);
        element = ChildNamed(*element, cut.head.c_str());
    } while (element != nullptr && cut.hasTail);
    return element;
}

XMLElement* Configuration::FindOrCreate(const std::string& path) {
    const auto append = [this](XMLNode& parent, const std::string& name) {
        XMLElement* made = document.NewElement(name.c_str());
        parent.InsertEndChild(made);
        modified = true;
        return made;
    };

    PathCut cut = CutPath(path);
    XMLElement* element = document.FirstChildElement();
    if (element == nullptr) element = append(document, cut.head);
    if (!SameText(element->Value(), cut.head.c_str())) return nullptr;

    if (cut.tail.empty()) return element;
    do {
        // Meant: an empty name is made like any other, so "Config.A." gives A a nameless child.
        cut = CutPath(cut.tail);
        XMLElement* child = ChildNamed(*element, cut.head.c_str());
        element = child != nullptr ? child : append(*element, cut.head);
    } while (cut.hasTail);
    return element;
}

std::int32_t Configuration::IndexOf(const std::string& path) {
    const XMLElement* element = Find(path);
    return element != nullptr ? static_cast<std::int32_t>(PositionAmongElements(*element)) : -1;
}

std::string Configuration::GetString(const std::string& path, std::string defaultValue) {
    const XMLElement* element = Find(path);
    if (element == nullptr) return defaultValue;
    const char* text = TextOf(*element);
    return text != nullptr ? text : "";
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
    XMLElement* element =
        FindOrCreate(path);  // Meant: not tested; a foreign root is a caller's fault.
    XMLNode* parent = element->Parent();
    const std::vector<XMLElement*> siblings = ElementChildren(*parent);
    const std::uint32_t position = PositionAmongElements(*element);
    if (position == index) return;

    XMLNode* copy = CopyOf(*element);
    parent->DeleteChild(element);
    if (index == 0) {
        parent->InsertFirstChild(copy);
    } else {
        // Meant: the list still counts the deleted element, so later moves land one place short.
        if (index - 1 >= siblings.size()) RaiseInvalidParameter();
        XMLElement* entry = siblings[index - 1];
        // Meant: behind the deleted element nothing is inserted, and the moved element is lost. It
        // lies in freed memory, so its place tells it, not its parent.
        const bool entryLinked = index - 1 != position && entry->Parent() == parent;
        if (copy->GetDocument() == parent->GetDocument() && entryLinked && entry != copy) {
            parent->InsertAfterChild(entry, copy);
        }
    }
    modified = true;
}
