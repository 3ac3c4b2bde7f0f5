#pragma once

#include "support/canvas.h"

#include <memory>
#include <string>

/// What the window shows now, its frame included.
std::unique_ptr<Canvas> CaptureWindow(HWND window);

/// Writes the canvas as a PNG file. False when that failed.
bool SavePng(const Canvas& canvas, const std::wstring& path);

/// Of two equally large canvases the share of pixels, 0 to 1, that differ by more than `tolerance`
/// in some channel; 1 when they aren't equally large.
double DifferentShare(const Canvas& one, const Canvas& other, int tolerance);
