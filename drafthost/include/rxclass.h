#pragma once

#include "rxobject.h"

/// The descriptor of a class that the host knows. Lives in the "ClassDictionary" of the system
/// registry, under its name, until `deleteAcRxClass`.
class DRAFTHOST_API AcRxClass : public AcRxObject {
  public:
    AcRxClass(const ACHAR* name, const ACHAR* parentName);
    ~AcRxClass() override;
    AcRxClass(const AcRxClass&) = delete;
    AcRxClass& operator=(const AcRxClass&) = delete;

    AcRxClass* isA() const override;
    static AcRxClass* desc();

    const ACHAR* name() const;

    /// The parent's descriptor; null for the root and for a class whose parent is not registered
    /// (yet): `acrxBuildClassHierarchy` joins what was registered out of order.
    AcRxClass* myParent() const;

    /// Whether this class is `other` or derives from it. A null `other` gives false.
    bool isDerivedFrom(const AcRxClass* other) const;

  private:
    friend struct AcRxClassAccess;

    struct Data;
    Data* m_data;
};

/// Makes a descriptor and registers it; null when the name is empty or taken. The registry owns it.
DRAFTHOST_API AcRxClass* newAcRxClass(const ACHAR* className, const ACHAR* parentClassName);

/// Takes the descriptor out of the registry and deletes it. Classes derived from it lose their
/// parent. Null does nothing.
DRAFTHOST_API void deleteAcRxClass(AcRxClass* descriptor);

/// Joins every registered class to its parent.
DRAFTHOST_API void acrxBuildClassHierarchy();
