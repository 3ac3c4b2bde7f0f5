#include "runtime/host/document_lisp.h"

#include "runtime/host/commands.h"
#include "runtime/host/document.h"
#include "runtime/host/external_call.h"
#include "runtime/host/line_input.h"
#include "runtime/host/module_table.h"
#include "runtime/host/support_files.h"
#include "runtime/host/text_output.h"
#include "runtime/host/variables.h"

namespace drafthost {

DocumentLisp::DocumentLisp(Document& document) : m_document(document), m_interpreter(*this) {}

void DocumentLisp::Print(const std::wstring& text) {
    drafthost::Print(text);
}

std::optional<std::wstring> DocumentLisp::GetEnvironment(const std::wstring& name) {
    return GetSetting(name);
}

bool DocumentLisp::SetEnvironment(const std::wstring& name, const std::wstring& value) {
    return SetSetting(name, value);
}

std::optional<std::wstring> DocumentLisp::FindFile(const std::wstring& name) {
    return FindSupportFile(name);
}

void DocumentLisp::RunCommand(const std::vector<LispValue>& arguments) {
    RunCommandsOfLisp(arguments);
}

std::vector<std::wstring> DocumentLisp::Modules() {
    std::vector<std::wstring> names;
    for (const auto& module : ModuleTable::Instance().Modules())
        names.push_back(module->name);
    return names;
}

bool DocumentLisp::LoadModule(const std::wstring& file) {
    return drafthost::LoadModule(file) == LoadResult::Loaded;
}

bool DocumentLisp::UnloadModule(const std::wstring& file) {
    return drafthost::UnloadModule(file) == UnloadResult::Unloaded;
}

LispValue DocumentLisp::CallExternal(const LispExternal& function,
                                     const std::vector<LispValue>& arguments) {
    return CallModuleFunction(m_document, function, arguments);
}

std::optional<std::wstring> DocumentLisp::ReadLine(const std::wstring& prompt) {
    return ReadUserLine(prompt);
}

std::optional<LispValue> DocumentLisp::GetVariable(const std::wstring& name) {
    return GetHostVariable(name, m_document);
}

bool DocumentLisp::SetVariable(const std::wstring& name, const LispValue& value) {
    return SetHostVariable(name, value);
}

}  // namespace drafthost
