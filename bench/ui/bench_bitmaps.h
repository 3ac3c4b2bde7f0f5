#pragma once

// Bitmap resources of the user interface's benchmarks.

#define IDB_PICTURE 501  // 237 by 226 pixels
#define IDB_SIGN 502     // 40 by 40 pixels on the colour that a tip leaves out
