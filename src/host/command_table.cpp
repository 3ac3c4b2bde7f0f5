#include "host/command_table.h"

#include "host/load_kvt_command.h"
#include "host/resource_name.h"
#include "host/section_table.h"

SECTION_TABLE(ARXCOMMA, ArxCommandEntry, CommandTable)

namespace {

// Meant: the global name is the one without the underscore.
ArxCommandEntry g_loadKVT = {
    L"KVTCAD",       L"LoadKVT", L"_LoadKVT",      ACRX_CMD_TRANSPARENT,
    &LoadKVTCommand, nullptr,    noStringResource,
};

}  // namespace

SECTION_TABLE_ROW(ARXCOMMA, 001, ArxCommandEntry, g_loadKVT);
