#pragma once

#include "drafthost_api.h"

/// Readies the host's interface library; may be called any number of times.
DRAFTHOST_API void InitAcUiDLL();
