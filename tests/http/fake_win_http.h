#pragma once

#include <windows.h>
// Needs windows.h ahead of it.
#include <winhttp.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

/// Replaces WinHTTP for the life of this object: notes down every call with its arguments, answers
/// as told and sends nothing. One at a time.
///
/// A note reads `Connect(session2, "a.example", 80, 0)`; the handles of each kind are numbered as
/// they are given out. A character beyond ASCII is noted as \uXXXX, a body byte by byte.
class FakeWinHttp {
  public:
    FakeWinHttp();
    FakeWinHttp(const FakeWinHttp&) = delete;
    FakeWinHttp& operator=(const FakeWinHttp&) = delete;
    ~FakeWinHttp();

    /// Makes one call of the operation fail: the next one, or one further on.
    void Fail(const std::string& operation, int further = 0);

    /// The notes since the last `TakeCalls`.
    std::vector<std::string> TakeCalls();

    BOOL sendResult = TRUE;
    std::wstring status = L"200";
    /// Each is announced by one QueryDataAvailable and read by one ReadData.
    std::vector<std::string> chunks;
    size_t largestRead = static_cast<size_t>(-1);  ///< ReadData gives no more bytes than this
    /// Called with the operation's name at each call, ahead of everything else.
    std::function<void(const std::string& operation)> atCall;

  private:
    struct Hooks;
    struct Failure {
        std::string operation;
        int further;
    };

    bool Note(const std::string& operation, const std::string& arguments);
    HINTERNET Make(const char* kind);
    std::string Name(HINTERNET handle) const;

    std::vector<std::string> m_calls;
    std::vector<Failure> m_failures;
    std::vector<std::string> m_handles;
    std::unique_ptr<Hooks> m_hooks;

    friend struct FakeWinHttpOperations;
};
