#pragma once

// Pictures in the test program's resources, each 32 by 16 pixels in four quarters. All but the one
// with alpha are red and green above, blue and white below.
#define IDB_PLAIN 201      // bitmap resource, 24 bits a pixel
#define IDR_PNG 301        // 24 bits a pixel
#define IDR_GIF 302        // four palette entries
#define IDR_JPEG 303       // no chroma subsampling, so the quarters' middles are nearly exact
#define IDR_BMP 304        // the file of IDB_PLAIN
#define IDR_PNG_ALPHA 305  // (200, 0, 0), (0, 100, 0) at alpha 128; (0, 0, 60) at alpha 0, white

// What the About dialog looked like when somebody last looked: version 2.1.0, with its frame.
#define IDR_ABOUT 401
