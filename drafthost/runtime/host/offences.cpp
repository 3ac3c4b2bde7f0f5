#include "runtime/host/offences.h"

#include "runtime/host/calling_module.h"
#include "runtime/host/text_output.h"

#include <mutex>
#include <set>

namespace drafthost {

namespace {

std::mutex g_mutex;
unsigned g_count = 0;

/// The names of the modules whose first offence was shown.
std::set<std::wstring>& Offenders() {
    static std::set<std::wstring> names;
    return names;
}

}  // namespace

void ReportOffence(const std::wstring& moduleName, const std::wstring& what) {
    bool isFirst = false;
    {
        const std::lock_guard lock(g_mutex);
        ++g_count;
        isFirst = Offenders().insert(moduleName).second;
    }
    const std::wstring line = L"drafthost: offence of " + moduleName + L": " + what;
    if (isFirst) {
        PrintLine(line);
    } else {
        PrintNote(line);
    }
}

void ReportOffence(HMODULE module, const std::wstring& what) {
    ReportOffence(ModuleName(module), what);
}

unsigned OffenceCount() {
    const std::lock_guard lock(g_mutex);
    return g_count;
}

bool IsHostThread(const wchar_t* service) {
    static const DWORD hostThread = GetCurrentThreadId();
    const DWORD thread = GetCurrentThreadId();
    if (thread == hostThread) return true;
    ReportOffence(CallingModuleOnStack(), std::wstring(service) + L" called on thread " +
                                              std::to_wstring(thread) +
                                              L", which isn't the host's");
    return false;
}

}  // namespace drafthost
