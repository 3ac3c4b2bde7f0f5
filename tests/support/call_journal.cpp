#include "support/call_journal.h"

#include <algorithm>
#include <utility>

namespace {

std::vector<std::wstring> g_calls;

}  // namespace

void CallJournal::Clear() {
    g_calls.clear();
}

void CallJournal::Add(const std::wstring& call) {
    g_calls.push_back(call);
}

const std::vector<std::wstring>& CallJournal::Calls() {
    return g_calls;
}

std::vector<std::wstring> CallJournal::Take() {
    return std::exchange(g_calls, {});
}

int CallJournal::Count(const std::wstring& call) {
    return static_cast<int>(std::count(g_calls.begin(), g_calls.end(), call));
}
