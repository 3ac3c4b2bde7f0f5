#pragma once

// Bitmap resources of the tool tip tests.

/// 4 by 2 pixels: (254, 253, 206), (249, 248, 206), (249, 247, 206), (255, 0, 0) above,
/// (254, 253, 216), (254, 253, 217), (0, 0, 255), (255, 255, 255) below. At 200 dots an inch.
#define IDB_KEYED 401
/// 12 by 40 pixels, all (0, 128, 0).
#define IDB_TALL 402
#define ID_NO_BITMAP 499
