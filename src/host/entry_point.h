#pragma once

#include <rxdefs.h>

/// The exported function that gets the host's messages: an `AcRx::AppMsgCode`, taken as 32 unsigned
/// bits, and the message's packet.
extern "C" AcRx::AppRetCode acrxEntryPoint(unsigned message, void* packet);
