#pragma once

#include <windows.h>

// What all image objects of the process share: their count, GDI+, memory device contexts. Any
// thread may call.

/// Counts an image object that was made.
void AddImageObject();

/// Counts one that went. With the last one GDI+ is shut down, if it was started here, and the
/// pooled device contexts are deleted.
void RemoveImageObject();

/// Starts GDI+ unless it runs already. False when it doesn't start; the next call tries again.
bool StartDrawingLibrary();

/// A memory device context: a pooled one, or a new one. Null when there is none to be had.
HDC TakeMemoryDC();

/// Gives it back, with nothing of the user's selected any more.
void GiveMemoryDC(HDC memoryDC);
