#pragma once

#include "support/window_capture.h"

#include <memory>

/// How the About dialog of version 2.1.0 looked when a person approved it, with its frame.
std::unique_ptr<Canvas> ApprovedPicture();

/// Whether the two differ no more than other versions of Wine and of the font smooth letters and
/// frames. A control that is missing, moved or cut changes many more pixels: more than 0.5 % of
/// them by more than 48 in some channel.
bool LookAlike(const Canvas& one, const Canvas& other);

/// For a picture that isn't as approved: leaves it as about-shown.png beside the program and tells
/// where that is.
void KeepForALook(const Canvas& shown);
