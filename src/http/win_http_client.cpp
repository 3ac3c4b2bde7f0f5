#include "http/win_http_client.h"

#include "http/status_code.h"
#include "http/text_conversion.h"
#include "http/url_split.h"
#include "http/win_http_transport.h"

#include <cstring>
#include <memory>
#include <utility>

namespace {

constexpr wchar_t agent[] = L"Microsoft Internet Explorer";
constexpr uint16_t securePort = 443;
constexpr uint32_t notFoundStatus = 404;
constexpr DWORD readBufferSize = 4096;

// Any certificate will do: of an unknown issuer, for another use or name, or out of date.
constexpr uint32_t acceptAnyCertificate =
    SECURITY_FLAG_SECURE | SECURITY_FLAG_IGNORE_UNKNOWN_CA | SECURITY_FLAG_IGNORE_CERT_WRONG_USAGE |
    SECURITY_FLAG_IGNORE_CERT_CN_INVALID | SECURITY_FLAG_IGNORE_CERT_DATE_INVALID;

constexpr auto toTheirNul = static_cast<uint32_t>(-1);

void CloseAndClear(HINTERNET& handle) {
    if (handle != nullptr) Transport::Close(handle);
    handle = nullptr;
}

}  // namespace

// Meant: this session is never used. The first request closes it and opens its own.
CWinHttp::CWinHttp() {
    m_hSession = Transport::Open(agent);
    if (m_hSession == nullptr) {
        Fail(HttpStep::Open);
        return;
    }
    Transport::SetTimeouts(m_hSession, 0, m_connectTimeout, m_sendTimeout, m_receiveTimeout);
}

CWinHttp::~CWinHttp() {
    CloseHandles();
}

void CWinHttp::SetTimeouts(uint32_t connect, uint32_t send, uint32_t receive) {
    m_connectTimeout = connect;
    m_sendTimeout = send;
    m_receiveTimeout = receive;
}

std::string CWinHttp::Request(const std::wstring& url, uint32_t method, const char* body,
                              const wchar_t* headers) {
    std::string response;
    if (!OpenAndSend(url, method, body, headers)) return response;

    wchar_t status[24] = {};
    // A status that can't be read is 0, and the body is read all the same.
    m_statusCode =
        Transport::QueryStatus(m_hRequest, status, sizeof status) ? ParseStatusCode(status) : 0;
    if (m_statusCode == notFoundStatus) throw HttpErrorNotFound;

    const bool complete = ReadResponse(response);
    response = Utf8ToAnsi(std::move(response));  // Meant: also of what is dropped right away.
    if (!complete) response.clear();
    return response;
}

std::string CWinHttp::Request(const std::string& url, uint32_t method, const char* body,
                              const char* headers) {
    if (headers == nullptr) return Request(AnsiToWide(url), method, body, nullptr);
    return Request(AnsiToWide(url), method, body, AnsiToWide(headers).c_str());
}

void CWinHttp::Release() {
    // Meant: a direct call on null does nothing. The build keeps the compiler from dropping this.
    if (this != nullptr) delete this;
}

HttpInterfaceError CWinHttp::GetErrorCode() {
    return m_errorCode;
}

uint32_t CWinHttp::GetStatusCode() {
    return m_statusCode;
}

void CWinHttp::CloseHandles() {
    CloseAndClear(m_hRequest);
    CloseAndClear(m_hConnect);
    CloseAndClear(m_hSession);
}

bool CWinHttp::OpenAndSend(const std::wstring& url, uint32_t method, const char* body,
                           const wchar_t* headers) {
    CloseHandles();
    m_hSession = Transport::Open(agent);
    if (m_hSession == nullptr) return Fail(HttpStep::Open);
    Transport::SetTimeouts(m_hSession, 0, m_connectTimeout, m_sendTimeout, m_receiveTimeout);

    const UrlParts parts = SplitUrl(url);
    // Meant: the port alone decides, not the scheme, and the flag is never cleared again.
    if (parts.port == securePort) m_secure = 1;

    m_hConnect = Transport::Connect(m_hSession, parts.host.c_str(), parts.port);
    if (m_hConnect == nullptr) return Fail(HttpStep::Connect);

    m_hRequest = Transport::OpenRequest(m_hConnect, method == 0 ? L"GET" : L"POST",
                                        parts.path.c_str(), m_secure ? WINHTTP_FLAG_SECURE : 0);
    if (m_hRequest == nullptr) return Fail(HttpStep::OpenRequest);

    if (m_secure) Transport::SetSecurityFlags(m_hRequest, acceptAnyCertificate);
    if (!SendRequestData(body, headers)) return Fail(HttpStep::Send);
    if (!Transport::ReceiveResponse(m_hRequest)) return Fail(HttpStep::Receive);
    return true;
}

bool CWinHttp::SendRequestData(const char* body, const wchar_t* headers) {
    // Meant: an empty text. The caller's headers go with the request itself.
    Transport::AddRequestHeaders(m_hRequest, L"", 0,
                                 WINHTTP_ADDREQ_FLAG_ADD | WINHTTP_ADDREQ_FLAG_REPLACE);

    const auto length = body != nullptr ? static_cast<uint32_t>(std::strlen(body)) : 0;
    const BOOL sent = Transport::SendRequest(m_hRequest, headers,
                                             headers != nullptr ? toTheirNul : 0, body, length);
    return sent == TRUE;  // Meant: exactly 1; another non-zero result is a failure.
}

bool CWinHttp::ReadResponse(std::string& response) {
    std::unique_ptr<char[]> buffer(new char[readBufferSize]);
    DWORD available = 0;
    while (Transport::QueryDataAvailable(m_hRequest, available)) {
        if (available == 0) return true;
        // Meant: compared with 4096 and not with the buffer in hand, each large chunk gets its own.
        if (available > readBufferSize) {
            buffer.reset();
            buffer.reset(new char[available]);
        }
        DWORD read = 0;
        if (!Transport::ReadData(m_hRequest, buffer.get(), available, read)) return false;
        response.append(buffer.get(), read);
    }
    return false;
}

/// Records the failure; false for the caller to pass on.
bool CWinHttp::Fail(HttpStep step) {
    m_errorCode = ErrorOfFailedStep(step);  // Meant: never reset, a later success keeps it.
    return false;
}
