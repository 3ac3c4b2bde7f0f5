#pragma once

#include "http/http_interface_error.h"

#include <cstdint>
#include <string>

/// URLs of the servers that with_servers starts; `path` begins with a slash. Each throws
/// std::runtime_error when the program was started without them.
std::wstring NginxUrl(const std::wstring& path);
std::wstring SecureNginxUrl(const std::wstring& path);
std::wstring HostileUrl(const std::wstring& path);

/// The value that with_servers gives under this name.
std::wstring ServerSetting(const wchar_t* name);

/// What a caller has of one request.
struct Outcome {
    std::string body;
    uint32_t status = 0;
    HttpInterfaceError error = HttpErrorNone;
    bool notFound = false;  ///< the exception was thrown
};

/// One request by a client of its own; 0 for `timeout` leaves the client's time-outs.
Outcome Get(const std::wstring& url, const wchar_t* headers = nullptr, uint32_t timeout = 0);
Outcome Post(const std::wstring& url, const char* body, const wchar_t* headers = nullptr);

/// The first `size` bytes of the text that the servers' pattern files hold.
std::string Pattern(size_t size);
