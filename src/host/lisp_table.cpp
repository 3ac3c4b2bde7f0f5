#include "host/lisp_table.h"

#include "host/get_kvt_path.h"
#include "host/resource_name.h"
#include "host/section_table.h"

SECTION_TABLE(ADSSYMBO, AdsSymbolEntry, LispTable)

namespace {

AdsSymbolEntry g_getKVTPath = {L"GetKVTPath", &GetKVTPath, false, noStringResource};

}  // namespace

SECTION_TABLE_ROW(ADSSYMBO, 001, AdsSymbolEntry, g_getKVTPath);
