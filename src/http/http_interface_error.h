#pragma once

/// The last failure of a `CWinHttp`. The numbers are part of the interface; 4 is free.
enum HttpInterfaceError {
    HttpErrorNone = 0,      ///< no failure recorded
    HttpErrorRequest = 1,   ///< no session, no request, or no response headers
    HttpErrorConnect = 2,   ///< no connection handle
    HttpErrorSend = 3,      ///< the request didn't get out; name look-up and TLS fail here, too
    HttpErrorNotFound = 5,  ///< status 404: thrown by value, never stored
};

/// The steps of a request that end it when they fail.
enum class HttpStep { Open, Connect, OpenRequest, Send, Receive };

/// What a failure of the step is reported as.
constexpr HttpInterfaceError ErrorOfFailedStep(HttpStep step) {
    switch (step) {
        case HttpStep::Connect:
            return HttpErrorConnect;
        case HttpStep::Send:
            return HttpErrorSend;
        case HttpStep::Open:
        case HttpStep::OpenRequest:
        case HttpStep::Receive:
            break;
    }
    return HttpErrorRequest;
}
