#include "rxobject.h"

#include "rxclass.h"

AcRxObject::~AcRxObject() = default;

AcRxClass* AcRxObject::isA() const {
    return desc();
}

AcRxObject* AcRxObject::clone() const {
    return nullptr;
}

Acad::ErrorStatus AcRxObject::copyFrom(const AcRxObject*) {
    return Acad::eNotImplementedYet;
}

Adesk::Boolean AcRxObject::isEqualTo(const AcRxObject* other) const {
    return this == other;
}

AcRx::Ordering AcRxObject::comparedTo(const AcRxObject* other) const {
    return this == other ? AcRx::kEqual : AcRx::kNotOrderable;
}

bool AcRxObject::isKindOf(const AcRxClass* descriptor) const {
    const AcRxClass* own = isA();
    return own != nullptr && own->isDerivedFrom(descriptor);
}
