// A module that breaks the host's rules: the environment variable DRAFTHOST_MISDEED names how,
// with ";" between several ways.

#include "modules/fixture_exports.h"

#include "aced.h"
#include "rxdict.h"

#include <windows.h>

#include <cstdlib>
#include <exception>
#include <stdexcept>
#include <string>
#include <thread>

namespace {

bool Is(const wchar_t* misdeed) {
    wchar_t chosen[128] = {};
    GetEnvironmentVariableW(L"DRAFTHOST_MISDEED", chosen, 128);
    const std::wstring list = std::wstring(L";") + chosen + L";";
    return list.find(std::wstring(L";") + misdeed + L";") != std::wstring::npos;
}

void WriteToNull() {
    volatile int* volatile null = nullptr;
    *null = 1;
}

volatile int g_deepest = 0x7FFFFFFF;

int Recurse(int depth) {
    volatile char block[512];
    block[depth % 512] = 1;
    return depth < g_deepest ? Recurse(depth + 1) + block[depth % 512] : 0;
}

volatile int g_zero = 0;
volatile int g_quotient = 0;

void Divide() {
    g_quotient = 7 / g_zero;
}

void ThrowUnless(bool isRight) {
    if (!isRight) throw std::runtime_error("past noexcept");
}

void ThrowThroughNoexcept() noexcept {
    ThrowUnless(g_zero != 0);
}

void CallHostFromThread() {
    std::thread([] {
        const int printed = acutPrintf(L"\nfrom a thread");
        const int stored = acedSetEnv(L"FromThread", L"1");
        g_quotient = printed + stored;
    }).join();
}

struct AtStaticTime {
    AtStaticTime() {
        if (Is(L"crash in static")) WriteToNull();
        if (Is(L"throw in static")) throw std::runtime_error("static");
        if (Is(L"caught in static")) {
            try {
                throw std::runtime_error("caught");
            } catch (const std::exception&) {
            }
        }
    }
    ~AtStaticTime() {
        if (Is(L"crash in static destructor")) WriteToNull();
    }
} g_atStaticTime;

class Reactor : public AcApDocManagerReactor {
    void documentToBeDestroyed(AcApDocument*) override {
        if (Is(L"crash in reactor")) WriteToNull();
    }
} g_reactor;

class Entry : public AcRxObject {
} g_entry;

AcRxDynamicLinker* Linker() {
    return static_cast<AcRxDynamicLinker*>(acrxSysRegistry()->at(L"DynamicLinker"));
}

AcEdCommandStack* Commands() {
    return static_cast<AcEdCommandStack*>(acrxSysRegistry()->at(L"ACAD_REGISTERED_COMMANDS"));
}

LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_CREATE && Is(L"crash in window")) WriteToNull();
    if (message == WM_CREATE && Is(L"throw in window")) throw std::runtime_error("window");
    return DefWindowProcW(window, message, wParam, lParam);
}

void ShowWindowOfOwn() {
    WNDCLASSW windowClass = {};
    windowClass.lpfnWndProc = WindowProcedure;
    windowClass.lpszClassName = L"Misbehaving";
    RegisterClassW(&windowClass);
    DestroyWindow(CreateWindowExW(0, L"Misbehaving", L"", WS_OVERLAPPEDWINDOW, 0, 0, 100, 100,
                                  nullptr, nullptr, nullptr, nullptr));
}

std::wstring BesideThis(const std::wstring& file) {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(GetModuleHandleW(L"misbehaving.arx"), path, MAX_PATH);
    const std::wstring own = path;
    return own.substr(0, own.rfind(L'\\') + 1) + file;
}

bool LoadRecorder() {
    return Linker()->loadModule(BesideThis(L"recorder.arx").c_str(), false);
}

/// Tells what the linker answers to one call after the other.
void UseLinker() {
    std::wstring answers;
    const auto note = [&](bool answer) { answers += answer ? L" yes" : L" no"; };
    note(LoadRecorder());
    note(LoadRecorder());
    note(Linker()->loadModule(L"C:\\nothing.arx", false));
    note(Linker()->loadModule(nullptr, false));
    note(Linker()->unloadModule(L"nothing.arx"));
    note(Linker()->unloadModule(nullptr));
    note(Linker()->unloadModule(L"recorder.arx"));
    note(Linker()->unloadModule(L"recorder.arx"));
    acutPrintf(L"\nthe linker answers:%s", answers.c_str());
}

void Command() {
    if (Is(L"use linker")) UseLinker();
    if (Is(L"crash in window") || Is(L"throw in window")) ShowWindowOfOwn();
    if (Is(L"crash in command")) WriteToNull();
    if (Is(L"throw in command")) throw std::out_of_range("from a command");
    if (Is(L"crash in thread")) std::thread(WriteToNull).join();
    if (Is(L"throw in thread")) std::thread([] { throw std::runtime_error("thread"); }).join();
    if (Is(L"unload itself")) Linker()->unloadModule(L"misbehaving.arx");
}

void Start(void* packet) {
    if (!Is(L"locked")) Linker()->unlockApplication(packet);
    if (!Is(L"one drawing")) Linker()->registerAppMDIAware(packet);
    Commands()->addCommand(L"BAD", L"Bad", L"Bad", ACRX_CMD_SESSION, Command);
    if (Is(L"crash in kInitAppMsg")) WriteToNull();
    if (Is(L"throw in kInitAppMsg")) throw std::runtime_error("in the start");
    if (Is(L"leave reactor") || Is(L"crash in reactor")) acDocManagerPtr()->addReactor(&g_reactor);
    if (Is(L"leave class")) newAcRxClass(L"LeftClass", L"AcRxObject");
    if (Is(L"leave entry")) acrxSysRegistry()->atPut(L"LeftEntry", &g_entry);
    if (Is(L"overwrite linker")) acrxSysRegistry()->atPut(L"DynamicLinker", &g_entry);
    if (Is(L"remove linker")) acrxSysRegistry()->remove(L"DynamicLinker");
    if (Is(L"lend entry")) {
        AcRxObject* before = acrxSysRegistry()->atPut(L"DynamicLinker", &g_entry);
        acrxSysRegistry()->atPut(L"DynamicLinker", before);
    }
    if (Is(L"add twice")) {
        acDocManagerPtr()->addReactor(&g_reactor);
        acDocManagerPtr()->addReactor(&g_reactor);
        acDocManagerPtr()->removeReactor(&g_reactor);
    }
    if (Is(L"remove unknown")) acDocManagerPtr()->removeReactor(&g_reactor);
    if (Is(L"delete unknown")) {
        AcRxClass unknown(L"Unknown", L"AcRxObject");
        deleteAcRxClass(&unknown);
    }
    if (Is(L"delete host's")) deleteAcRxClass(Commands()->isA());
    if (Is(L"foreign packet")) Linker()->unlockApplication(&g_entry);
    if (Is(L"thread")) CallHostFromThread();
}

void OpenDrawing() {
    acedDefun(L"bad", 0);
    if (Is(L"crash in kLoadDwgMsg")) WriteToNull();
    if (Is(L"throw in kLoadDwgMsg")) throw std::runtime_error("in the drawing");
    if (Is(L"throw int")) throw 42;
    if (Is(L"load in kLoadDwgMsg")) LoadRecorder();
    if (Is(L"stack overflow")) Recurse(0);
    if (Is(L"division")) Divide();
    if (Is(L"exit")) std::exit(0);
    if (Is(L"abort")) std::abort();
    if (Is(L"noexcept")) ThrowThroughNoexcept();
    if (Is(L"push")) acDocManagerPtr()->pushResourceHandle(GetModuleHandleW(nullptr));
    if (Is(L"pop")) acDocManagerPtr()->popResourceHandle();
}

void CloseDrawing() {
    if (Is(L"crash in kUnloadDwgMsg")) WriteToNull();
    if (!Is(L"leave function")) acedUndef(L"bad", 0);
}

void Stop() {
    if (Is(L"crash in kUnloadAppMsg")) WriteToNull();
    if (Is(L"unload another")) Linker()->unloadModule(L"recorder.arx");
    if (Is(L"load at the end")) LoadRecorder();
    if (!Is(L"leave command")) Commands()->removeGroup(L"BAD");
    if (Is(L"crash in reactor")) acDocManagerPtr()->removeReactor(&g_reactor);
}

}  // namespace

AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* packet) {
    switch (message) {
        case AcRx::kInitAppMsg:
            Start(packet);
            return Is(L"refuse") ? AcRx::kRetError : AcRx::kRetOK;
        case AcRx::kUnloadAppMsg:
            Stop();
            break;
        case AcRx::kLoadDwgMsg:
            OpenDrawing();
            break;
        case AcRx::kUnloadDwgMsg:
            CloseDrawing();
            break;
        case AcRx::kInvkSubrMsg:
            if (Is(L"crash in kInvkSubrMsg")) WriteToNull();
            if (Is(L"unknown answer to a call")) return static_cast<AcRx::AppRetCode>(7);
            break;
        case AcRx::kPreQuitMsg:
            if (Is(L"unload in kPreQuitMsg")) Linker()->unloadModule(L"recorder.arx");
            break;
        case AcRx::kQuitMsg:
            if (Is(L"crash in kQuitMsg")) WriteToNull();
            break;
        default:
            break;
    }
    return Is(L"unknown answer") ? static_cast<AcRx::AppRetCode>(7) : AcRx::kRetOK;
}

BOOL WINAPI DllMain(HINSTANCE, DWORD reason, void*) {
    if (reason == DLL_PROCESS_ATTACH && Is(L"crash in attach")) WriteToNull();
    if (reason == DLL_PROCESS_DETACH && Is(L"crash in detach")) WriteToNull();
    return !(reason == DLL_PROCESS_ATTACH && Is(L"refuse attach"));
}
