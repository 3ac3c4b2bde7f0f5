#include "kvtfetch/fetch.h"

#include "http/text_conversion.h"
#include "http/win_http_client.h"

#include "kvtfetch/ending.h"
#include "kvtfetch/utf8.h"

FetchResult Fetch(const FetchOptions& options) {
    CWinHttp client;
    if (options.timeout) client.SetTimeouts(*options.timeout, *options.timeout, *options.timeout);

    std::string body;
    HttpInterfaceError error = HttpErrorNone;
    try {
        body = client.Request(options.url, options.body ? 1 : 0,
                              options.body ? options.body->c_str() : nullptr,
                              options.headers ? options.headers->c_str() : nullptr);
        error = client.GetErrorCode();
    } catch (HttpInterfaceError thrown) {
        error = thrown;
    }

    FetchResult result;
    result.exitCode = error;
    if (error == HttpErrorNone || error == HttpErrorNotFound) {
        result.output = "status " + std::to_string(client.GetStatusCode()) + "\n" +
                        WideToUtf8(AnsiToWide(body));
    }
    if (error != HttpErrorNone) result.errors = "kvtfetch: " + MeaningOfExitCode(error) + "\n";
    return result;
}
