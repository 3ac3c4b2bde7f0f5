#pragma once

#include "adesk.h"
#include "adscodes.h"

using ads_real = double;
using ads_point = ads_real[3];

/// A link in a list of values that pass between LISP and a module. `restype` tells which member
/// of the union counts; the RT codes are in adscodes.h.
struct resbuf {
    resbuf* rbnext;
    short restype;
    union {
        ads_real rreal;
        ads_real rpoint[3];
        short rint;
        ACHAR* rstring;
        Adesk::Int32 rlong;
    } resval;
};
