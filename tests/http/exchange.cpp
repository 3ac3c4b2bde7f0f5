#include "http/exchange.h"

#include "http/win_http_client.h"

#include <cstdlib>
#include <stdexcept>
#include <string_view>

namespace {

Outcome Exchange(const std::wstring& url, uint32_t method, const char* body, const wchar_t* headers,
                 uint32_t timeout) {
    CWinHttp client;
    if (timeout != 0) client.SetTimeouts(timeout, timeout, timeout);
    Outcome outcome;
    try {
        outcome.body = client.Request(url, method, body, headers);
    } catch (HttpInterfaceError error) {
        outcome.notFound = error == HttpErrorNotFound;
    }
    outcome.status = client.GetStatusCode();
    outcome.error = client.GetErrorCode();
    return outcome;
}

}  // namespace

std::wstring ServerSetting(const wchar_t* name) {
    const wchar_t* value = _wgetenv(name);
    if (value == nullptr) throw std::runtime_error("run this program by tests/http/with_servers");
    return value;
}

std::wstring NginxUrl(const std::wstring& path) {
    return L"http://" + ServerSetting(L"KVT_NGINX") + path;
}

std::wstring SecureNginxUrl(const std::wstring& path) {
    return L"https://" + ServerSetting(L"KVT_NGINX") + path;
}

std::wstring HostileUrl(const std::wstring& path) {
    return L"http://127.0.0.1:" + ServerSetting(L"KVT_HOSTILE_PORT") + path;
}

Outcome Get(const std::wstring& url, const wchar_t* headers, uint32_t timeout) {
    return Exchange(url, 0, nullptr, headers, timeout);
}

Outcome Post(const std::wstring& url, const char* body, const wchar_t* headers) {
    return Exchange(url, 1, body, headers, 0);
}

std::string Pattern(size_t size) {
    constexpr std::string_view line =
        "0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ\n";
    std::string pattern;
    while (pattern.size() < size)
        pattern += line;
    pattern.resize(size);
    return pattern;
}
