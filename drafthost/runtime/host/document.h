#pragma once

#include "runtime/host/document_lisp.h"

#include "acdocman.h"

#include <deque>
#include <string>
#include <vector>

namespace drafthost {

/// A LISP function that a module defined in a document.
struct LispDefinition {
    std::wstring name;
    int code = 0;
    HMODULE owner = nullptr;
};

/// One open drawing: its names, its LISP world and the expressions that wait for evaluation.
class Document : public AcApDocument {
  public:
    /// `path` may be a bare title for a drawing that was never saved.
    explicit Document(std::wstring path);

    const ACHAR* fileName() const override { return m_path.c_str(); }
    const ACHAR* docTitle() const override { return m_title.c_str(); }

    /// The folder with a backslash at its end; empty for a drawing that was never saved.
    std::wstring Folder() const;

    LispInterpreter& Lisp() { return m_lisp.Interpreter(); }

    void Define(const std::wstring& name, int code, HMODULE owner);
    /// False when the name wasn't defined with this code by this module.
    bool Undefine(const std::wstring& name, int code, HMODULE owner);
    /// Drops what `module` defined; gives the names.
    std::vector<std::wstring> UndefineAllOf(HMODULE module);

    const std::vector<LispDefinition>& Definitions() const { return m_definitions; }

    /// Expressions queued by `ads_queueexpr`, the oldest first.
    std::deque<std::wstring> m_queue;

  private:
    std::wstring m_path;
    std::wstring m_title;
    std::vector<LispDefinition> m_definitions;
    DocumentLisp m_lisp;
};

}  // namespace drafthost
