#pragma once

#include "adsdef.h"

namespace drafthost {

/// A copy of the list with its texts, to be released with `acutRelRb`.
resbuf* CopyResultBuffers(const resbuf* buffers);

}  // namespace drafthost
