#pragma once

#include "rxdefs.h"

namespace drafthost {

/// "message kLoadDwgMsg (3)"; static text.
const wchar_t* MessageText(AcRx::AppMsgCode code);

}  // namespace drafthost
