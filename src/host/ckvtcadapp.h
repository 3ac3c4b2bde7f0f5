#pragma once

#include "host/acrx_arx_app.h"

/// The module, as far as the host's messages go.
class CKVTCADApp : public AcRxArxApp {
  public:
    /// The bases' start, then the environment. A start that finds no good installation prints one
    /// line and answers `kRetError`; the commands stay registered then. A good one greets.
    AcRx::AppRetCode On_kInitAppMsg(void* packet) override;
    AcRx::AppRetCode On_kUnloadAppMsg(void* packet) override;
    /// Queues the load of the LISP application, then defines the LISP functions; at every drawing
    /// anew.
    AcRx::AppRetCode On_kLoadDwgMsg(void* packet) override;
    AcRx::AppRetCode On_kQuitMsg(void* packet) override;
};

/// The one application object.
extern CKVTCADApp g_application;
