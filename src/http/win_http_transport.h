#pragma once

#include <windows.h>
// Needs windows.h ahead of it.
#include <winhttp.h>

#include <cstdint>
#include <string>

/// What the client needs of the transport, one function for each operation of WinHTTP; everything
/// is synchronous. A text is UTF-16. Handles belong to the caller, who gives them to `Close`.
namespace Transport {

/// A session with the proxy that the system is configured for; null on failure.
HINTERNET Open(const wchar_t* agent);

/// Time-outs of the session in milliseconds, 0 for no limit.
void SetTimeouts(HINTERNET session, uint32_t resolve, uint32_t connect, uint32_t send,
                 uint32_t receive);

/// A connection handle; nothing goes over the wire yet. Null on failure.
HINTERNET Connect(HINTERNET session, const wchar_t* host, uint16_t port);

/// A request handle with the default version and accept types and no referrer; null on failure.
HINTERNET OpenRequest(HINTERNET connection, const wchar_t* verb, const wchar_t* path,
                      uint32_t flags);

/// Sets the request's security flags. A platform that refuses them for `SECURITY_FLAG_SECURE`,
/// which it only reports, gets the others without it.
void SetSecurityFlags(HINTERNET request, uint32_t flags);

/// `length` counts characters; -1 for a text that ends with NUL.
void AddRequestHeaders(HINTERNET request, const wchar_t* headers, uint32_t length,
                       uint32_t modifiers);

/// Sends request line, headers and body. `headers` may be null with length 0; a length of -1 as
/// above. Gives the platform's own result, unchanged.
BOOL SendRequest(HINTERNET request, const wchar_t* headers, uint32_t headersLength,
                 const char* body, uint32_t bodyLength);

/// Waits for the response headers.
bool ReceiveResponse(HINTERNET request);

/// Copies the status as decimal text; `size` is the buffer's in bytes.
bool QueryStatus(HINTERNET request, wchar_t* buffer, uint32_t size);

/// How many body bytes can be read now; 0 at the end of the body.
bool QueryDataAvailable(HINTERNET request, DWORD& count);

/// Reads up to `count` bytes; `read` becomes the number read.
bool ReadData(HINTERNET request, char* buffer, uint32_t count, DWORD& read);

void Close(HINTERNET handle);

}  // namespace Transport
