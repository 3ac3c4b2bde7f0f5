#pragma once

#include <string>

namespace drafthost {

/// How `rtos` writes a length; the numbers are its mode argument.
enum class LispUnits {
    Scientific = 1,     ///< 1.75E+01
    Decimal = 2,        ///< 17.50
    Engineering = 3,    ///< 1'-5.50", the number being inches
    Architectural = 4,  ///< 1'-5 1/2"
    Fractional = 5      ///< 17 1/2
};

/// Which zeros `FormatUnits` leaves out; the bits of the host's variable DIMZIN.
struct LispZeros {
    bool hasZeroFeet = false;    ///< 0'-6"
    bool hasZeroInches = false;  ///< 2'-0"
    bool hasLeading = true;      ///< 0.5 and not .5, in decimals
    bool hasTrailing = true;     ///< 1.50 and not 1.5, in decimals
};

/// From 0 to 3 the value tells of feet and inches; 4 more drops leading zeros, 8 more those at the
/// end.
LispZeros ZerosOfVariable(int dimzin);

/// `precision` is the number of digits behind the point, for the last two the power of two that the
/// smallest fraction has below its bar. From 0 to 8; what is beyond counts as the end of the range.
/// Numbers beyond 1e12 have no feet and fractions: they are written as decimal.
std::wstring FormatUnits(double number, LispUnits units, int precision,
                         const LispZeros& zeros = {});

}  // namespace drafthost
