#pragma once

#define IDB_SIGN 101
/// An id for which the gallery has no bitmap: a tip of text alone.
#define IDB_NONE 0
