#pragma once

#include "adsdef.h"
#include "drafthost_api.h"

/// Prints on the host's command line, formatted as by the C library's wide printf.
DRAFTHOST_API int acutPrintf(const ACHAR* format, ...);

/// A value of this type code, zero or null, for the caller to fill in. Text belongs to
/// `acutRelRb`, so it is set through `acutBuildList`.
DRAFTHOST_API resbuf* acutNewRb(int type);

/// Releases a list of values with its strings. Null does nothing.
DRAFTHOST_API int acutRelRb(resbuf* rb);

/// A list of values from pairs of a type code and a value, ended by 0. Null on a bad code.
DRAFTHOST_API resbuf* acutBuildList(int rtype, ...);
