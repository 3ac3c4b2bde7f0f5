#pragma once

#include "atlstr.h"
#include "drafthost_api.h"

#include <windows.h>

class CObject;

/// The run-time record of a class derived from `CObject`; one static record for each class that
/// asks for one with the macros below.
struct DRAFTHOST_API CRuntimeClass {
    LPCSTR m_lpszClassName;
    int m_nObjectSize;                      ///< bytes
    UINT m_wSchema;                         ///< 0xFFFF: the class can't be stored
    CObject* (*m_pfnCreateObject)();        ///< null: objects can't be made from the record
    CRuntimeClass* (*m_pfnGetBaseClass)();  ///< null for `CObject` alone

    /// A new object of the class, or null when it has no creation function.
    CObject* CreateObject();
    /// Whether the class is `base` or derives from it, as far as the classes have records.
    BOOL IsDerivedFrom(const CRuntimeClass* base) const;
};

/// Root of the framework's classes.
class DRAFTHOST_API CObject {
  public:
    virtual CRuntimeClass* GetRuntimeClass() const;
    virtual ~CObject();
    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;

    BOOL IsKindOf(const CRuntimeClass* runtimeClass) const;

    static CRuntimeClass* GetThisClass();
    static const CRuntimeClass classCObject;

  protected:
    CObject() = default;
};

#define RUNTIME_CLASS(class_name) (class_name::GetThisClass())

#define DECLARE_DYNAMIC(class_name)               \
  public:                                         \
    static const CRuntimeClass class##class_name; \
    static CRuntimeClass* GetThisClass();         \
    CRuntimeClass* GetRuntimeClass() const override;

#define IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, schema, create)                       \
    const CRuntimeClass class_name::class##class_name = {#class_name, sizeof(class_name), schema, \
                                                         create, &base_class_name::GetThisClass}; \
    CRuntimeClass* class_name::GetThisClass() {                                                   \
        return const_cast<CRuntimeClass*>(&class_name::class##class_name);                        \
    }                                                                                             \
    CRuntimeClass* class_name::GetRuntimeClass() const {                                          \
        return GetThisClass();                                                                    \
    }

/// Run-time class support without creation: `DECLARE_DYNAMIC` in the class, this in its source.
#define IMPLEMENT_DYNAMIC(class_name, base_class_name) \
    IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, 0xFFFF, nullptr)

/// With creation; the class needs a constructor without arguments.
#define DECLARE_DYNCREATE(class_name) \
    DECLARE_DYNAMIC(class_name)       \
    static CObject* CreateObject();

#define IMPLEMENT_DYNCREATE(class_name, base_class_name) \
    CObject* class_name::CreateObject() {                \
        return new class_name;                           \
    }                                                    \
    IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, 0xFFFF, &class_name::CreateObject)

/// Root of the framework's own exceptions. They are thrown by pointer; whoever catches one and
/// doesn't throw it on calls `Delete`.
class DRAFTHOST_API CException : public CObject {
    DECLARE_DYNAMIC(CException)

    void Delete();
};

/// An operation that the object at hand can't do.
class DRAFTHOST_API CNotSupportedException : public CException {
    DECLARE_DYNAMIC(CNotSupportedException)
};

[[noreturn]] DRAFTHOST_API void AfxThrowNotSupportedException();
