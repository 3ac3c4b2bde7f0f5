#pragma once

#include "runtime/lisp/host.h"
#include "runtime/lisp/interpreter.h"

namespace drafthost {

class Document;

/// A document's LISP world: the interpreter, and the host that it sees.
class DocumentLisp : public LispHost {
  public:
    /// `document` owns the object.
    explicit DocumentLisp(Document& document);

    LispInterpreter& Interpreter() { return m_interpreter; }

    void Print(const std::wstring& text) override;
    std::optional<std::wstring> GetEnvironment(const std::wstring& name) override;
    bool SetEnvironment(const std::wstring& name, const std::wstring& value) override;
    std::optional<std::wstring> FindFile(const std::wstring& name) override;
    void RunCommand(const std::vector<LispValue>& arguments) override;
    std::vector<std::wstring> Modules() override;
    bool LoadModule(const std::wstring& file) override;
    bool UnloadModule(const std::wstring& file) override;
    LispValue CallExternal(const LispExternal& function,
                           const std::vector<LispValue>& arguments) override;
    std::optional<std::wstring> ReadLine(const std::wstring& prompt) override;
    std::optional<LispValue> GetVariable(const std::wstring& name) override;
    bool SetVariable(const std::wstring& name, const LispValue& value) override;

  private:
    Document& m_document;
    LispInterpreter m_interpreter;
};

}  // namespace drafthost
