#pragma once

/// How the pixels of a decoded picture get into the section.
enum class SectionFill {
    CopyRows,  ///< byte by byte, row by row
    DrawOver,  ///< GDI+ draws the picture into a bitmap laid over the section
};

/// What section to make for a decoded picture and how to fill it.
struct SectionPlan {
    int bitsPerPixel;
    bool hasAlpha;
    SectionFill fill;
    bool copyPalette;  ///< the picture's palette becomes the section's colour table
};

/// The plan for a GDI+ pixel format. A format with alpha counts as such even if GDI could hold it.
SectionPlan PlanSection(unsigned pixelFormat);

/// The pixel format of the bitmap laid over a section of 32 bits a pixel.
unsigned OverlayFormat(bool hasAlpha);
