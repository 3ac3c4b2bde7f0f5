#pragma once

#include <cstdint>

/// The number at the start of the decimal text of a status header; 0 when it starts with none.
uint32_t ParseStatusCode(const wchar_t* text);
