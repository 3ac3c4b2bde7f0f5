#include "afxwin.h"

#include "runtime/framework/message_map.h"

IMPLEMENT_DYNAMIC(CCmdTarget, CObject)

const AFX_MSGMAP* CCmdTarget::GetThisMessageMap() {
    static const AFX_MSGMAP_ENTRY entries[] = {{0, 0, 0, 0, AfxSig_end, nullptr}};
    static const AFX_MSGMAP map = {nullptr, entries};
    return &map;
}

const AFX_MSGMAP* CCmdTarget::GetMessageMap() const {
    return GetThisMessageMap();
}

BOOL CCmdTarget::OnCmdMsg(UINT id, int code, void* /*extra*/, void* /*handlerInfo*/) {
    const AFX_MSGMAP_ENTRY* entry =
        FindMapEntry(GetMessageMap(), WM_COMMAND, static_cast<UINT>(code), id);
    if (entry == nullptr) return FALSE;
    (this->*entry->pfn)();
    return TRUE;
}
