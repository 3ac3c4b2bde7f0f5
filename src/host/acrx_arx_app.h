#pragma once

#include "host/acrx_dbx_app.h"

/// Adds what a module with commands and LISP functions does with the host's messages. Every answer
/// is `kRetOK`, whatever the host made of the single registrations.
class AcRxArxApp : public AcRxDbxApp {
  public:
    /// The base's start, then the commands.
    AcRx::AppRetCode On_kInitAppMsg(void* packet) override;
    /// The base's unload, then the commands: classes come first in both directions.
    AcRx::AppRetCode On_kUnloadAppMsg(void* packet) override;
    /// Defines the LISP functions in the drawing.
    AcRx::AppRetCode On_kLoadDwgMsg(void* packet) override;
    /// Takes their definitions back.
    AcRx::AppRetCode On_kUnloadDwgMsg(void* packet) override;
    /// Runs the function that LISP has called.
    AcRx::AppRetCode On_kInvkSubrMsg(void* packet) override;

  protected:
    constexpr AcRxArxApp() = default;
    ~AcRxArxApp() = default;
};
