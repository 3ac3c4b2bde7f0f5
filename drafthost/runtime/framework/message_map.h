#pragma once

#include "afxwin.h"

/// The first row for the message, in `map` or the maps behind it; null when there is none. `code`
/// and `id` are WM_COMMAND's and 0 for every other message.
const AFX_MSGMAP_ENTRY* FindMapEntry(const AFX_MSGMAP* map, UINT message, UINT code, UINT id);
