#pragma once

#include "runtime/control.h"

/// A new drawing of the host in this process, for the life of the object.
struct OpenedDrawing {
    OpenedDrawing() { drafthost::NewDrawing(); }
    OpenedDrawing(const OpenedDrawing&) = delete;
    OpenedDrawing& operator=(const OpenedDrawing&) = delete;
    ~OpenedDrawing() { drafthost::CloseDrawing(); }
};
