#pragma once

#include <windows.h>

#include <string>

/// A program that is started here, with pipes as its standard input and output. At the end its
/// input is closed and it is waited for.
class PipedProgram {
  public:
    /// `arguments` stand behind the program's name, with a blank between them. Throws
    /// std::runtime_error when it can't be started.
    explicit PipedProgram(const std::wstring& path, const std::wstring& arguments = {});
    PipedProgram(const PipedProgram&) = delete;
    PipedProgram& operator=(const PipedProgram&) = delete;
    ~PipedProgram();

    /// Throws std::runtime_error when the program has gone.
    void Write(const std::string& text);

    /// Everything written until `text` is part of it, or up to the program's end.
    std::string ReadUpTo(const std::string& text);

  private:
    HANDLE m_input = nullptr;   ///< where the program reads
    HANDLE m_output = nullptr;  ///< what it writes
    PROCESS_INFORMATION m_process = {};
};
