#include "http/win_http_transport.h"

namespace Transport {

HINTERNET Open(const wchar_t* agent) {
    return WinHttpOpen(agent, WINHTTP_ACCESS_TYPE_DEFAULT_PROXY, WINHTTP_NO_PROXY_NAME,
                       WINHTTP_NO_PROXY_BYPASS, 0);
}

void SetTimeouts(HINTERNET session, uint32_t resolve, uint32_t connect, uint32_t send,
                 uint32_t receive) {
    // Result ignored: a session without the time-outs still works.
    WinHttpSetTimeouts(session, static_cast<int>(resolve), static_cast<int>(connect),
                       static_cast<int>(send), static_cast<int>(receive));
}

HINTERNET Connect(HINTERNET session, const wchar_t* host, uint16_t port) {
    return WinHttpConnect(session, host, port, 0);
}

HINTERNET OpenRequest(HINTERNET connection, const wchar_t* verb, const wchar_t* path,
                      uint32_t flags) {
    return WinHttpOpenRequest(connection, verb, path, nullptr, WINHTTP_NO_REFERER,
                              WINHTTP_DEFAULT_ACCEPT_TYPES, flags);
}

void SetSecurityFlags(HINTERNET request, uint32_t flags) {
    if (WinHttpSetOption(request, WINHTTP_OPTION_SECURITY_FLAGS, &flags, sizeof flags)) return;
    flags &= ~static_cast<uint32_t>(SECURITY_FLAG_SECURE);
    // Result ignored: without the flags the request still works with a certificate in order.
    WinHttpSetOption(request, WINHTTP_OPTION_SECURITY_FLAGS, &flags, sizeof flags);
}

void AddRequestHeaders(HINTERNET request, const wchar_t* headers, uint32_t length,
                       uint32_t modifiers) {
    // Result ignored: some platforms refuse an empty text, which adds nothing anyway.
    WinHttpAddRequestHeaders(request, headers, length, modifiers);
}

BOOL SendRequest(HINTERNET request, const wchar_t* headers, uint32_t headersLength,
                 const char* body, uint32_t bodyLength) {
    // The platform takes the body as writable and only reads it.
    return WinHttpSendRequest(request, headers, headersLength, const_cast<char*>(body), bodyLength,
                              bodyLength, 0);
}

bool ReceiveResponse(HINTERNET request) {
    return WinHttpReceiveResponse(request, nullptr);
}

bool QueryStatus(HINTERNET request, wchar_t* buffer, uint32_t size) {
    DWORD length = size;
    return WinHttpQueryHeaders(request, WINHTTP_QUERY_STATUS_CODE, WINHTTP_HEADER_NAME_BY_INDEX,
                               buffer, &length, WINHTTP_NO_HEADER_INDEX);
}

bool QueryDataAvailable(HINTERNET request, DWORD& count) {
    return WinHttpQueryDataAvailable(request, &count);
}

bool ReadData(HINTERNET request, char* buffer, uint32_t count, DWORD& read) {
    return WinHttpReadData(request, buffer, count, &read);
}

void Close(HINTERNET handle) {
    WinHttpCloseHandle(handle);  // Result ignored: nothing can be done about a handle that stays.
}

}  // namespace Transport
