#include "http/bare_request.h"

#include <windows.h>
// Needs windows.h ahead of it.
#include <winhttp.h>

#include <cwchar>
#include <memory>

namespace {

HINTERNET OpenSession() {
    HINTERNET session =
        WinHttpOpen(L"Microsoft Internet Explorer", WINHTTP_ACCESS_TYPE_DEFAULT_PROXY,
                    WINHTTP_NO_PROXY_NAME, WINHTTP_NO_PROXY_BYPASS, 0);
    WinHttpSetTimeouts(session, 0, 5000, 5000, 5000);
    return session;
}

std::string ReadBody(HINTERNET request) {
    std::string body;
    DWORD available = 0;
    while (WinHttpQueryDataAvailable(request, &available) && available > 0) {
        const size_t size = body.size();
        body.resize(size + available);
        DWORD read = 0;
        WinHttpReadData(request, body.data() + size, available, &read);
        body.resize(size + read);
    }
    return body;
}

}  // namespace

std::string BareGet(const wchar_t* host, const wchar_t* path) {
    // The client must open a session as it is made and another one for the request.
    WinHttpCloseHandle(OpenSession());
    HINTERNET session = OpenSession();
    HINTERNET connection = WinHttpConnect(session, host, INTERNET_DEFAULT_HTTP_PORT, 0);
    HINTERNET request = WinHttpOpenRequest(connection, L"GET", path, nullptr, WINHTTP_NO_REFERER,
                                           WINHTTP_DEFAULT_ACCEPT_TYPES, 0);
    WinHttpAddRequestHeaders(request, L"", 0,
                             WINHTTP_ADDREQ_FLAG_ADD | WINHTTP_ADDREQ_FLAG_REPLACE);
    WinHttpSendRequest(request, WINHTTP_NO_ADDITIONAL_HEADERS, 0, WINHTTP_NO_REQUEST_DATA, 0, 0, 0);
    WinHttpReceiveResponse(request, nullptr);

    wchar_t status[24] = {};
    DWORD statusSize = sizeof status;
    WinHttpQueryHeaders(request, WINHTTP_QUERY_STATUS_CODE, WINHTTP_HEADER_NAME_BY_INDEX, status,
                        &statusSize, WINHTTP_NO_HEADER_INDEX);
    std::string body;
    if (std::wcscmp(status, L"200") == 0) body = BareUtf8ToAnsi(ReadBody(request));

    WinHttpCloseHandle(request);
    WinHttpCloseHandle(connection);
    WinHttpCloseHandle(session);
    return body;
}

std::string BareUtf8ToAnsi(const std::string& text) {
    const int wideSize = MultiByteToWideChar(CP_UTF8, 0, text.c_str(), -1, nullptr, 0);
    const std::unique_ptr<wchar_t[]> wide(new wchar_t[wideSize]);
    MultiByteToWideChar(CP_UTF8, 0, text.c_str(), -1, wide.get(), wideSize);

    const int size = WideCharToMultiByte(CP_ACP, 0, wide.get(), -1, nullptr, 0, nullptr, nullptr);
    std::string ansi(size - 1, '\0');
    // The string's own terminator takes the place of the NUL that is converted too.
    WideCharToMultiByte(CP_ACP, 0, wide.get(), -1, ansi.data(), size, nullptr, nullptr);
    return ansi;
}
