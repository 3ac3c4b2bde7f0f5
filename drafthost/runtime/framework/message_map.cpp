#include "runtime/framework/message_map.h"

const AFX_MSGMAP_ENTRY* FindMapEntry(const AFX_MSGMAP* map, UINT message, UINT code, UINT id) {
    while (map != nullptr) {
        for (const AFX_MSGMAP_ENTRY* entry = map->lpEntries; entry->nSig != AfxSig_end; ++entry) {
            if (entry->nMessage == message && entry->nCode == code && entry->nID <= id &&
                id <= entry->nLastID) {
                return entry;
            }
        }
        map = map->pfnGetBaseMap != nullptr ? map->pfnGetBaseMap() : nullptr;
    }
    return nullptr;
}
