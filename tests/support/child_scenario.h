#pragma once

#include "support/child_process.h"

/// Names a function of the test program that a child runs instead of the tests:
/// `CHILD_SCENARIO(WritesToNull) { *static_cast<int*>(nullptr) = 1; return 0; }` and then
/// `RunScenario(L"WritesToNull")` in a test. For whatever ends the process.
#define CHILD_SCENARIO(name)                                                 \
    static int Scenario##name();                                             \
    static const ChildScenario g_scenario##name(L"" #name, &Scenario##name); \
    static int Scenario##name()

/// One entry of the program's list of scenarios; made by the macro, lives as long as the program.
struct ChildScenario {
    ChildScenario(const wchar_t* name, int (*function)());

    const wchar_t* name;
    int (*function)();
    const ChildScenario* next;
};

/// Runs the named scenario in a child of this program; its return value is the exit code.
ChildResult RunScenario(const std::wstring& name, const ChildOptions& options = {});
