#include "http/fake_win_http.h"

#include "support/import_hook.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <utility>

namespace {

constexpr char dll[] = "WINHTTP.dll";

FakeWinHttp* g_fake = nullptr;

std::string Quoted(const wchar_t* text) {
    if (text == nullptr) return "null";
    std::string quoted = "\"";
    for (; *text != L'\0'; ++text) {
        char escaped[8] = {};
        std::snprintf(escaped, sizeof escaped, *text < 0x80 ? "%c" : "\\u%04X", *text);
        quoted += escaped;
    }
    return quoted + "\"";
}

std::string Bytes(const void* data, DWORD length) {
    if (data == nullptr) return "null";
    return "'" + std::string(static_cast<const char*>(data), length) + "'";
}

std::string Hex(DWORD value) {
    char text[16] = {};
    std::snprintf(text, sizeof text, "0x%lX", value);
    return text;
}

std::string Null(const void* pointer) {
    return pointer == nullptr ? "null" : "not null";
}

template <typename... Texts>
std::string List(const std::string& first, const Texts&... more) {
    std::string list = first;
    ((list += ", ", list += more), ...);
    return list;
}

std::string Number(long long value) {
    return std::to_string(value);
}

bool AllZero(const void* data, DWORD length) {
    const char* bytes = static_cast<const char*>(data);
    return std::all_of(bytes, bytes + length, [](char byte) { return byte == 0; });
}

}  // namespace

struct FakeWinHttpOperations {
    static HINTERNET WINAPI Open(LPCWSTR agent, DWORD access, LPCWSTR proxy, LPCWSTR bypass,
                                 DWORD flags) {
        const bool works = g_fake->Note("Open", List(Quoted(agent), Number(access), Quoted(proxy),
                                                     Quoted(bypass), Number(flags)));
        return works ? g_fake->Make("session") : nullptr;
    }

    static BOOL WINAPI SetTimeouts(HINTERNET session, int resolve, int connect, int send,
                                   int receive) {
        return g_fake->Note("SetTimeouts", List(g_fake->Name(session), Number(resolve),
                                                Number(connect), Number(send), Number(receive)));
    }

    static HINTERNET WINAPI Connect(HINTERNET session, LPCWSTR host, INTERNET_PORT port,
                                    DWORD reserved) {
        const bool works = g_fake->Note(
            "Connect", List(g_fake->Name(session), Quoted(host), Number(port), Number(reserved)));
        return works ? g_fake->Make("connection") : nullptr;
    }

    static HINTERNET WINAPI OpenRequest(HINTERNET connection, LPCWSTR verb, LPCWSTR path,
                                        LPCWSTR version, LPCWSTR referrer, LPCWSTR* types,
                                        DWORD flags) {
        const bool works = g_fake->Note(
            "OpenRequest", List(g_fake->Name(connection), Quoted(verb), Quoted(path),
                                Quoted(version), Quoted(referrer), Null(types), Hex(flags)));
        return works ? g_fake->Make("request") : nullptr;
    }

    static BOOL WINAPI SetOption(HINTERNET request, DWORD option, LPVOID value, DWORD length) {
        const DWORD number = length == sizeof(DWORD) ? *static_cast<const DWORD*>(value) : 0;
        return g_fake->Note(
            "SetOption", List(g_fake->Name(request), Number(option), Hex(number), Number(length)));
    }

    static BOOL WINAPI AddHeaders(HINTERNET request, LPCWSTR headers, DWORD length,
                                  DWORD modifiers) {
        return g_fake->Note("AddHeaders", List(g_fake->Name(request), Quoted(headers),
                                               Number(length), Hex(modifiers)));
    }

    static BOOL WINAPI Send(HINTERNET request, LPCWSTR headers, DWORD headersLength, LPVOID body,
                            DWORD bodyLength, DWORD totalLength, DWORD_PTR context) {
        const bool works = g_fake->Note(
            "Send",
            List(g_fake->Name(request), Quoted(headers), Number(static_cast<int>(headersLength)),
                 Bytes(body, bodyLength), Number(bodyLength), Number(totalLength),
                 Number(static_cast<long long>(context))));
        return works ? g_fake->sendResult : FALSE;
    }

    static BOOL WINAPI Receive(HINTERNET request, LPVOID reserved) {
        return g_fake->Note("Receive", List(g_fake->Name(request), Null(reserved)));
    }

    static BOOL WINAPI QueryHeaders(HINTERNET request, DWORD level, LPCWSTR name, LPVOID buffer,
                                    LPDWORD length, LPDWORD index) {
        const std::string zeros = AllZero(buffer, *length) ? " zeros" : " other bytes";
        if (!g_fake->Note("QueryHeaders", List(g_fake->Name(request), Number(level), Quoted(name),
                                               Number(*length) + zeros, Null(index)))) {
            return FALSE;
        }
        *length = static_cast<DWORD>(g_fake->status.size() * sizeof(wchar_t));
        std::memcpy(buffer, g_fake->status.data(), *length);
        return TRUE;
    }

    static BOOL WINAPI Available(HINTERNET request, LPDWORD count) {
        if (!g_fake->Note("Available", g_fake->Name(request))) return FALSE;
        *count = g_fake->chunks.empty() ? 0 : static_cast<DWORD>(g_fake->chunks.front().size());
        return TRUE;
    }

    static BOOL WINAPI Read(HINTERNET request, LPVOID buffer, DWORD length, LPDWORD read) {
        if (!g_fake->Note("Read", List(g_fake->Name(request), Number(length)))) return FALSE;
        const std::string chunk = g_fake->chunks.front().substr(0, g_fake->largestRead);
        g_fake->chunks.erase(g_fake->chunks.begin());
        std::memcpy(buffer, chunk.data(), chunk.size());
        *read = static_cast<DWORD>(chunk.size());
        return TRUE;
    }

    static BOOL WINAPI Close(HINTERNET handle) {
        return g_fake->Note("Close", g_fake->Name(handle));
    }
};

struct FakeWinHttp::Hooks {
    using Fake = FakeWinHttpOperations;
    template <typename Function>
    using Hook = ImportHook<Function>;

    Hook<decltype(&WinHttpOpen)> open{dll, "WinHttpOpen", &Fake::Open};
    Hook<decltype(&WinHttpSetTimeouts)> setTimeouts{dll, "WinHttpSetTimeouts", &Fake::SetTimeouts};
    Hook<decltype(&WinHttpConnect)> connect{dll, "WinHttpConnect", &Fake::Connect};
    Hook<decltype(&WinHttpOpenRequest)> openRequest{dll, "WinHttpOpenRequest", &Fake::OpenRequest};
    Hook<decltype(&WinHttpSetOption)> setOption{dll, "WinHttpSetOption", &Fake::SetOption};
    Hook<decltype(&WinHttpAddRequestHeaders)> addHeaders{dll, "WinHttpAddRequestHeaders",
                                                         &Fake::AddHeaders};
    Hook<decltype(&WinHttpSendRequest)> send{dll, "WinHttpSendRequest", &Fake::Send};
    Hook<decltype(&WinHttpReceiveResponse)> receive{dll, "WinHttpReceiveResponse", &Fake::Receive};
    Hook<decltype(&WinHttpQueryHeaders)> queryHeaders{dll, "WinHttpQueryHeaders",
                                                      &Fake::QueryHeaders};
    Hook<decltype(&WinHttpQueryDataAvailable)> available{dll, "WinHttpQueryDataAvailable",
                                                         &Fake::Available};
    Hook<decltype(&WinHttpReadData)> read{dll, "WinHttpReadData", &Fake::Read};
    Hook<decltype(&WinHttpCloseHandle)> close{dll, "WinHttpCloseHandle", &Fake::Close};
};

FakeWinHttp::FakeWinHttp() : m_hooks(std::make_unique<Hooks>()) {
    g_fake = this;
}

FakeWinHttp::~FakeWinHttp() {
    g_fake = nullptr;
}

void FakeWinHttp::Fail(const std::string& operation, int further) {
    m_failures.push_back({operation, further});
}

std::vector<std::string> FakeWinHttp::TakeCalls() {
    return std::exchange(m_calls, {});
}

/// Whether the call is to work.
bool FakeWinHttp::Note(const std::string& operation, const std::string& arguments) {
    if (atCall) atCall(operation);
    m_calls.push_back(operation + "(" + arguments + ")");
    for (auto failure = m_failures.begin(); failure != m_failures.end(); ++failure) {
        if (failure->operation != operation) continue;
        if (failure->further-- > 0) continue;
        m_failures.erase(failure);
        return false;
    }
    return true;
}

HINTERNET FakeWinHttp::Make(const char* kind) {
    const auto ofKind = std::count_if(m_handles.begin(), m_handles.end(),
                                      [&](const auto& name) { return name.rfind(kind, 0) == 0; });
    m_handles.push_back(kind + std::to_string(ofKind + 1));
    return reinterpret_cast<HINTERNET>(m_handles.size());
}

std::string FakeWinHttp::Name(HINTERNET handle) const {
    const auto number = reinterpret_cast<size_t>(handle);
    if (number == 0) return "null";
    return number <= m_handles.size() ? m_handles[number - 1] : "unknown handle";
}
