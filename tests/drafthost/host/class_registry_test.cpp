// Class descriptors and the dictionary of them.

#include "accmd.h"
#include "acdocman.h"
#include "rxdict.h"
#include "rxdlinkr.h"
#include "rxregsvc.h"

#include <gtest/gtest.h>

namespace {

AcRxDictionary& ClassDictionary() {
    return *static_cast<AcRxDictionary*>(acrxSysRegistry()->at(L"ClassDictionary"));
}

AcRxClass* Find(const ACHAR* name) {
    return static_cast<AcRxClass*>(ClassDictionary().at(name));
}

}  // namespace

TEST(SystemRegistry, HoldsTheServicesUnderTheirNames) {
    EXPECT_TRUE(acrxSysRegistry()->at(L"DynamicLinker")->isKindOf(AcRxDynamicLinker::desc()));
    EXPECT_TRUE(acrxSysRegistry()->at(L"ClassDictionary")->isKindOf(AcRxDictionary::desc()));
    EXPECT_TRUE(
        acrxSysRegistry()->at(L"ACAD_REGISTERED_COMMANDS")->isKindOf(AcEdCommandStack::desc()));
    EXPECT_EQ(acrxSysRegistry()->at(L"dynamiclinker"), nullptr) << "case counts";
    EXPECT_EQ(acrxSysRegistry()->at(nullptr), nullptr);
}

TEST(ClassDictionary, HoldsTheHostsOwnClasses) {
    EXPECT_EQ(Find(L"AcRxObject"), AcRxObject::desc());
    EXPECT_EQ(Find(L"AcRxClass"), AcRxClass::desc());
    EXPECT_EQ(Find(L"AcRxDictionary"), AcRxDictionary::desc());
    EXPECT_EQ(Find(L"AcRxDynamicLinker"), AcRxDynamicLinker::desc());
    EXPECT_EQ(Find(L"AcEdCommand"), AcEdCommand::desc());
    EXPECT_EQ(Find(L"AcEdCommandStack"), AcEdCommandStack::desc());
    EXPECT_EQ(Find(L"AcApDocument"), AcApDocument::desc());
    EXPECT_EQ(Find(L"AcApDocManager"), AcApDocManager::desc());
    EXPECT_EQ(Find(L"AcApDocManagerReactor"), AcApDocManagerReactor::desc());
}

TEST(AcRxClass, DerivationGoesUpToTheRoot) {
    EXPECT_TRUE(AcEdCommandStack::desc()->isDerivedFrom(AcEdCommandStack::desc()));
    EXPECT_TRUE(AcEdCommandStack::desc()->isDerivedFrom(AcRxObject::desc()));
    EXPECT_FALSE(AcEdCommandStack::desc()->isDerivedFrom(AcRxDictionary::desc()));
    EXPECT_FALSE(AcEdCommandStack::desc()->isDerivedFrom(nullptr));
    EXPECT_EQ(AcRxObject::desc()->myParent(), nullptr);
    EXPECT_EQ(AcRxClass::desc()->isA(), AcRxClass::desc());
}

TEST(NewAcRxClass, RegistersUnderItsNameUntilDeleted) {
    AcRxClass* made = newAcRxClass(L"TestThing", L"AcRxObject");

    EXPECT_EQ(Find(L"TestThing"), made);
    EXPECT_STREQ(made->name(), L"TestThing");
    EXPECT_EQ(made->myParent(), AcRxObject::desc());

    deleteAcRxClass(made);
    EXPECT_EQ(Find(L"TestThing"), nullptr);
    deleteAcRxClass(nullptr);
}

TEST(NewAcRxClass, RefusesAnEmptyOrTakenName) {
    EXPECT_EQ(newAcRxClass(nullptr, L"AcRxObject"), nullptr);
    EXPECT_EQ(newAcRxClass(L"", L"AcRxObject"), nullptr);
    EXPECT_EQ(newAcRxClass(L"AcRxObject", nullptr), nullptr);
}

TEST(BuildClassHierarchy, JoinsClassesRegisteredOutOfOrder) {
    AcRxClass* derived = newAcRxClass(L"TestDerived", L"TestBase");
    AcRxClass* base = newAcRxClass(L"TestBase", L"AcRxObject");
    EXPECT_EQ(derived->myParent(), nullptr);

    acrxBuildClassHierarchy();

    EXPECT_EQ(derived->myParent(), base);
    EXPECT_TRUE(derived->isDerivedFrom(AcRxObject::desc()));
    deleteAcRxClass(base);
    EXPECT_EQ(derived->myParent(), nullptr)
        << "classes derived from a deleted one lose their parent";
    deleteAcRxClass(derived);
}

TEST(AcRxObject, HasPlainDefaults) {
    struct Thing : AcRxObject {
    } thing, other;

    EXPECT_EQ(thing.isA(), AcRxObject::desc());
    EXPECT_EQ(thing.clone(), nullptr);
    EXPECT_EQ(thing.copyFrom(&other), Acad::eNotImplementedYet);
    EXPECT_TRUE(thing.isEqualTo(&thing));
    EXPECT_FALSE(thing.isEqualTo(&other));
    EXPECT_EQ(thing.comparedTo(&thing), AcRx::kEqual);
    EXPECT_EQ(thing.comparedTo(&other), AcRx::kNotOrderable);
}

TEST(AcRxDictionary, PutsFindsAndRemoves) {
    AcRxDictionary& registry = *acrxSysRegistry();
    struct Thing : AcRxObject {
    } first, second;
    const Adesk::UInt32 before = registry.numEntries();

    EXPECT_EQ(registry.atPut(L"TestEntry", &first), nullptr);
    EXPECT_EQ(registry.atPut(L"TestEntry", &second), &first) << "what stood there before";
    EXPECT_TRUE(registry.has(L"TestEntry"));
    EXPECT_EQ(registry.numEntries(), before + 1);
    EXPECT_EQ(registry.at(L"TestEntry"), &second);
    EXPECT_EQ(registry.remove(L"TestEntry"), &second);
    EXPECT_EQ(registry.remove(L"TestEntry"), nullptr);
    EXPECT_FALSE(registry.has(L"TestEntry"));
    EXPECT_EQ(registry.atPut(nullptr, &first), nullptr);
    EXPECT_EQ(registry.numEntries(), before);
}
