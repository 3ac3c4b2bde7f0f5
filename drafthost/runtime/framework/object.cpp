#include "afx.h"

CObject* CRuntimeClass::CreateObject() {
    return m_pfnCreateObject != nullptr ? m_pfnCreateObject() : nullptr;
}

BOOL CRuntimeClass::IsDerivedFrom(const CRuntimeClass* base) const {
    for (const CRuntimeClass* at = this; at != nullptr;
         at = at->m_pfnGetBaseClass != nullptr ? at->m_pfnGetBaseClass() : nullptr) {
        if (at == base) return TRUE;
    }
    return FALSE;
}

const CRuntimeClass CObject::classCObject = {"CObject", sizeof(CObject), 0xFFFF, nullptr, nullptr};

CRuntimeClass* CObject::GetThisClass() {
    return const_cast<CRuntimeClass*>(&classCObject);
}

CRuntimeClass* CObject::GetRuntimeClass() const {
    return GetThisClass();
}

CObject::~CObject() = default;

BOOL CObject::IsKindOf(const CRuntimeClass* runtimeClass) const {
    return GetRuntimeClass()->IsDerivedFrom(runtimeClass);
}

IMPLEMENT_DYNAMIC(CException, CObject)

void CException::Delete() {
    delete this;
}

IMPLEMENT_DYNAMIC(CNotSupportedException, CException)

void AfxThrowNotSupportedException() {
    throw new CNotSupportedException;
}
