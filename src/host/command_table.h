#pragma once

#include "host/slot_range.h"

#include <accmd.h>

/// A command that the module offers.
struct ArxCommandEntry {
    const wchar_t* groupName;
    const wchar_t* globalName;
    const wchar_t* localName;  ///< null: the text of string resource `localNameId`
    Adesk::Int32 flags;        ///< the host's ACRX_CMD_ bits
    AcRxFunctionPtr handler;
    AcEdUIContext* uiContext;   ///< may be null
    Adesk::UInt32 localNameId;  ///< `noStringResource` when there is none
};

/// The module's commands, from section ARXCOMMA of its image.
SlotRange<ArxCommandEntry> CommandTable();
