#pragma once

/// A character of the host's text: UTF-16.
using ACHAR = wchar_t;
#define ACRX_T(text) L##text

/// The host's plain types.
namespace Adesk {
using Boolean = bool;
using Int16 = short;
using Int32 = int;
using UInt32 = unsigned int;
}  // namespace Adesk

/// The host's status codes, as far as its services here give them.
namespace Acad {
enum ErrorStatus {
    eOk = 0,
    eNotImplementedYet = 1,
    eInvalidInput = 3,
    eAmbiguousInput = 4,
    eOutOfMemory = 6,
    eDuplicateKey = 9,
    eInvalidIndex = 11,
    eKeyNotFound = 16,
};
}  // namespace Acad
