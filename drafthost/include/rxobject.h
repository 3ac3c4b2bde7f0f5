#pragma once

#include "drafthost_api.h"
#include "rxdefs.h"

class AcRxClass;

/// Base of everything that the host's registries hold: an object that knows its class descriptor.
class DRAFTHOST_API AcRxObject {
  public:
    virtual ~AcRxObject();

    /// The descriptor of the object's own class; never null for a registered class.
    virtual AcRxClass* isA() const;

    /// A copy on the heap, the caller's; null here: only derived classes know how.
    virtual AcRxObject* clone() const;
    /// eNotImplementedYet here.
    virtual Acad::ErrorStatus copyFrom(const AcRxObject* other);
    /// Identity here.
    virtual Adesk::Boolean isEqualTo(const AcRxObject* other) const;
    /// kEqual for the object itself, else kNotOrderable.
    virtual AcRx::Ordering comparedTo(const AcRxObject* other) const;

    /// Whether the object's class is `descriptor` or derives from it.
    bool isKindOf(const AcRxClass* descriptor) const;

    /// The descriptor of this class.
    static AcRxClass* desc();

  protected:
    AcRxObject() = default;
    AcRxObject(const AcRxObject&) = default;
    AcRxObject& operator=(const AcRxObject&) = default;
};

/// Inside a class derived from AcRxObject: its descriptor and `isA`.
#define ACRX_DECLARE_MEMBERS(CLASS_NAME) \
  public:                                \
    AcRxClass* isA() const override;     \
    static AcRxClass* desc();            \
    static void rxInit();                \
                                         \
  private:                               \
    static AcRxClass* gpDesc;            \
                                         \
  public:

/// In one source file: the members above. `rxInit` registers the class under its own name.
#define ACRX_NO_CONS_DEFINE_MEMBERS(CLASS_NAME, PARENT_CLASS)                             \
    AcRxClass* CLASS_NAME::gpDesc = nullptr;                                              \
    AcRxClass* CLASS_NAME::desc() {                                                       \
        return gpDesc;                                                                    \
    }                                                                                     \
    AcRxClass* CLASS_NAME::isA() const {                                                  \
        return gpDesc;                                                                    \
    }                                                                                     \
    void CLASS_NAME::rxInit() {                                                           \
        if (gpDesc == nullptr) gpDesc = newAcRxClass(L"" #CLASS_NAME, L"" #PARENT_CLASS); \
    }
