#pragma once

#include "http/http_interface_error.h"

#include <windows.h>
// Needs windows.h ahead of it.
#include <winhttp.h>

#include <cstdint>
#include <string>

/// Makes one HTTP or HTTPS request at a time and gives the response body as a text.
///
/// Lives on its user's stack and belongs to one thread at a time; several objects may work at once.
/// A `Request` blocks its caller and can't be cancelled; what the time-outs bound is the platform's
/// affair, see docs/http.md. The handles of a request stay open until the next one or the
/// destructor. Any server certificate is accepted.
class CWinHttp {
  public:
    CWinHttp();
    CWinHttp(const CWinHttp&) = delete;
    CWinHttp& operator=(const CWinHttp&) = delete;
    virtual ~CWinHttp();

    /// Milliseconds, 0 for no limit; 5000 each from the start. They count from the next `Request`.
    virtual void SetTimeouts(uint32_t connect, uint32_t send, uint32_t receive);

    /// Sends a request and gives the response body in the system's ANSI code page.
    ///
    /// `method` 0 is "GET", anything else "POST". `body` is sent byte by byte up to its NUL, with
    /// either method; null for none. `headers` are lines parted by CR LF; null for none. The
    /// response is taken as UTF-8 and ends at its first NUL.
    ///
    /// Empty on failure: `GetErrorCode` names one before the response, and a body that broke off
    /// can't be told from an empty one. Throws `HttpErrorNotFound` by value on status 404. TLS is
    /// used with port 443 and with no other, and after that on this object for good.
    // A compiler that lays overloads out in reverse needs the two in the other order.
    virtual std::string Request(const std::wstring& url, uint32_t method, const char* body,
                                const wchar_t* headers);
    /// As the wide form, with URL and headers in the system's ANSI code page.
    virtual std::string Request(const std::string& url, uint32_t method, const char* body,
                                const char* headers);

    /// Deletes an object made by `new`.
    virtual void Release();

    /// The last failure since construction: a later success doesn't clear it.
    virtual HttpInterfaceError GetErrorCode();

    /// Of the last response whose headers came; 0 when there was none or it had no status.
    virtual uint32_t GetStatusCode();

  protected:
    uint32_t m_statusCode = 0;
    uint8_t m_secure = 0;            ///< a request went to port 443; never cleared again
    HINTERNET m_hSession = nullptr;  ///< Raw, as its two kin: they outlive the request on purpose.
    HINTERNET m_hConnect = nullptr;
    HINTERNET m_hRequest = nullptr;
    uint32_t m_connectTimeout = 5000;
    uint32_t m_sendTimeout = 5000;
    uint32_t m_receiveTimeout = 5000;
    void* m_reserved1 = nullptr;  // Meant: both keep their place in the layout, nothing uses them.
    void* m_reserved2 = nullptr;
    HttpInterfaceError m_errorCode = HttpErrorNone;

  private:
    void CloseHandles();
    bool OpenAndSend(const std::wstring& url, uint32_t method, const char* body,
                     const wchar_t* headers);
    bool SendRequestData(const char* body, const wchar_t* headers);
    bool ReadResponse(std::string& response);
    bool Fail(HttpStep step);
};
