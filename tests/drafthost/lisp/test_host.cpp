#include "drafthost/lisp/test_host.h"

#include "runtime/lisp/error.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <algorithm>

using namespace drafthost;

void TestHost::Print(const std::wstring& text) {
    printed += text;
}

std::optional<std::wstring> TestHost::GetEnvironment(const std::wstring& name) {
    const auto found = environment.find(name);
    return found == environment.end() ? std::nullopt : std::optional(found->second);
}

bool TestHost::SetEnvironment(const std::wstring& name, const std::wstring& value) {
    if (name == L"LOCKED") return false;
    environment[name] = value;
    return true;
}

std::optional<std::wstring> TestHost::FindFile(const std::wstring& name) {
    for (const std::wstring& path : {name, folder + name}) {
        if (GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES) return path;
    }
    return std::nullopt;
}

void TestHost::RunCommand(const std::vector<LispValue>& arguments) {
    commands.push_back(LispPrin1(LispValue::List(arguments)));
}

bool TestHost::LoadModule(const std::wstring& file) {
    if (file != L"good.arx") return false;
    modules.push_back(file);
    return true;
}

bool TestHost::UnloadModule(const std::wstring& file) {
    const auto found = std::find(modules.begin(), modules.end(), file);
    if (found == modules.end()) return false;
    modules.erase(found);
    return true;
}

LispValue TestHost::CallExternal(const LispExternal& function,
                                 const std::vector<LispValue>& arguments) {
    return external(function, arguments);
}

std::optional<std::wstring> TestHost::ReadLine(const std::wstring& prompt) {
    Print(prompt);
    if (answers.empty()) return std::nullopt;
    const std::wstring answer = answers.front();
    answers.pop_front();
    return answer;
}

std::optional<LispValue> TestHost::GetVariable(const std::wstring& name) {
    const auto found = variables.find(name);
    return found == variables.end() ? std::nullopt : std::optional(found->second);
}

bool TestHost::SetVariable(const std::wstring& name, const LispValue& value) {
    if (name == L"READONLY" || variables.count(name) == 0) return false;
    variables[name] = value;
    return true;
}

std::wstring Shown(LispInterpreter& interpreter, const std::wstring& text) {
    const LispOutcome outcome = interpreter.Evaluate(text);
    return outcome.succeeded ? LispPrin1(outcome.value) : outcome.ErrorLine();
}

void ExpectShown(const std::vector<LispRow>& rows) {
    for (const LispRow& row : rows) {
        TestHost host;
        LispInterpreter interpreter(host);

        EXPECT_EQ(Shown(interpreter, row.expression), row.shown)
            << row.why << ": " << testing::PrintToString(std::wstring(row.expression));
    }
}
