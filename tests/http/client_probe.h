#pragma once

#include "http/win_http_client.h"

/// A client whose fields a test may look at and set.
struct ClientProbe : CWinHttp {
    using CWinHttp::m_connectTimeout;
    using CWinHttp::m_errorCode;
    using CWinHttp::m_hConnect;
    using CWinHttp::m_hRequest;
    using CWinHttp::m_hSession;
    using CWinHttp::m_receiveTimeout;
    using CWinHttp::m_reserved1;
    using CWinHttp::m_reserved2;
    using CWinHttp::m_secure;
    using CWinHttp::m_sendTimeout;
    using CWinHttp::m_statusCode;
};
