#pragma once

#include "rxclass.h"

/// A dictionary of objects by name, case-sensitive.
class DRAFTHOST_API AcRxDictionary : public AcRxObject {
    ACRX_DECLARE_MEMBERS(AcRxDictionary)

    /// The object under `key`, or null. Stays the dictionary's (or its maker's).
    virtual AcRxObject* at(const ACHAR* key) const = 0;

    /// Enters `object` under `key` and gives back what stood there before, or null. The dictionary
    /// doesn't own its objects.
    virtual AcRxObject* atPut(const ACHAR* key, AcRxObject* object) = 0;

    /// Takes the entry out and gives back its object, or null.
    virtual AcRxObject* remove(const ACHAR* key) = 0;

    virtual bool has(const ACHAR* entryName) const = 0;
    virtual Adesk::UInt32 numEntries() const = 0;
};
