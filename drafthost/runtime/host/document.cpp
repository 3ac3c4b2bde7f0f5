#include "runtime/host/document.h"

#include "runtime/host/same_name.h"

#include <algorithm>
#include <cstdint>

ACRX_NO_CONS_DEFINE_MEMBERS(AcApDocument, AcRxObject)

namespace drafthost {

namespace {

LispExternal ExternalOf(HMODULE owner, int code) {
    return {reinterpret_cast<std::uintptr_t>(owner), code};
}

}  // namespace

Document::Document(std::wstring path)
    : m_path(std::move(path)),
      m_title(m_path.substr(m_path.find_last_of(L"\\/") + 1)),
      m_lisp(*this) {}

std::wstring Document::Folder() const {
    return m_path.substr(0, m_path.size() - m_title.size());
}

void Document::Define(const std::wstring& name, int code, HMODULE owner) {
    Lisp().DefineExternal(name, ExternalOf(owner, code));
    for (LispDefinition& definition : m_definitions) {
        if (!IsSameName(definition.name, name)) continue;
        definition = {name, code, owner};
        return;
    }
    m_definitions.push_back({name, code, owner});
}

bool Document::Undefine(const std::wstring& name, int code, HMODULE owner) {
    const auto found = std::find_if(m_definitions.begin(), m_definitions.end(),
                                    [&](const LispDefinition& definition) {
                                        return IsSameName(definition.name, name) &&
                                               definition.code == code && definition.owner == owner;
                                    });
    if (found == m_definitions.end()) return false;
    Lisp().UndefineExternal(name,
                            ExternalOf(owner, code));  // False: LISP has given it another value.
    m_definitions.erase(found);
    return true;
}

std::vector<std::wstring> Document::UndefineAllOf(HMODULE module) {
    Lisp().UndefineExternals(reinterpret_cast<std::uintptr_t>(module));
    std::vector<std::wstring> names;
    const auto end = std::remove_if(m_definitions.begin(), m_definitions.end(),
                                    [&](const LispDefinition& definition) {
                                        if (definition.owner != module) return false;
                                        names.push_back(definition.name);
                                        return true;
                                    });
    m_definitions.erase(end, m_definitions.end());
    return names;
}

}  // namespace drafthost
