// kvt_fetch_peak ours|bare: fetches the large body once, by the client or by the bare calls, and
// prints by how many bytes the working set rose at its peak. A peak counts for a whole process, so
// this is one of its own.

#include "http/bare_request.h"
#include "http/exchange.h"
#include "http/large_body.h"
#include "http/win_http_client.h"
#include "http/working_set.h"

#include <cstdio>
#include <cwchar>
#include <string>

int wmain(int argc, wchar_t** argv) {
    const bool ours = argc == 2 && std::wcscmp(argv[1], L"ours") == 0;
    const size_t before = ReadWorkingSet().now;
    CWinHttp client;
    const std::string body = ours ? client.Request(NginxUrl(largePath), 0, nullptr, nullptr)
                                  : BareGet(ServerSetting(L"KVT_NGINX").c_str(), largePath);
    std::printf("%zu", ReadWorkingSet().peak - before);
    return body.size() == largeSize ? 0 : 1;
}
