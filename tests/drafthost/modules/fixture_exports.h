#pragma once

#include "rxdefs.h"

// What every fixture module exports; the entry point is its own.

#define FIXTURE_EXPORT extern "C" __declspec(dllexport)

FIXTURE_EXPORT AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* packet);
