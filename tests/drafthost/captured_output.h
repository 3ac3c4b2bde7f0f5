#pragma once

#include "runtime/control.h"

#include <string>

/// Takes the host's command line of this process for the life of the object.
class CapturedOutput : private drafthost::TextOutput {
  public:
    CapturedOutput() { drafthost::SetTextOutput(this); }
    CapturedOutput(const CapturedOutput&) = delete;
    CapturedOutput& operator=(const CapturedOutput&) = delete;
    ~CapturedOutput() override { drafthost::SetTextOutput(nullptr); }

    const std::wstring& Text() const { return m_text; }

  private:
    void Write(const std::wstring& text) override { m_text += text; }

    std::wstring m_text;
};
