#pragma once

#include "accmd.h"
#include "acdocman.h"
#include "acedads.h"
#include "acutads.h"
#include "rxdlinkr.h"
#include "rxregsvc.h"
