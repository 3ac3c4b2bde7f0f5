#pragma once

#include <cstdint>
#include <string>

/// What a connection needs of a URL.
struct UrlParts {
    std::wstring host;
    std::wstring path;  ///< with the query; at least "/"
    uint16_t port = 80;
};

/// Splits a URL by searching, not by the rules of URLs.
///
/// `url` is taken as it stands: no percent-decoding, no user names, no brackets around an address,
/// the scheme case-sensitive. The port is 443 behind "https://", else 80; a port in the text wins
/// over both. Never fails: a port that is no number gives 0, one above 65535 is cut to 16 bits.
UrlParts SplitUrl(const std::wstring& url);
