#include <afxwin.h>

#include <gtest/gtest.h>

#include <cstring>
#include <memory>

namespace {

class Plain : public CObject {
    DECLARE_DYNAMIC(Plain)
};
IMPLEMENT_DYNAMIC(Plain, CObject)

class Made : public Plain {
    DECLARE_DYNCREATE(Made)

    int m_extra[8] = {};
};
IMPLEMENT_DYNCREATE(Made, Plain)

class WithoutRecord : public Made {};

class Unrelated : public CObject {
    DECLARE_DYNAMIC(Unrelated)
};
IMPLEMENT_DYNAMIC(Unrelated, CObject)

}  // namespace

TEST(RuntimeClass, RecordHoldsNameSizeSchemaAndNoCreation) {
    const CRuntimeClass* record = RUNTIME_CLASS(Plain);

    EXPECT_STREQ(record->m_lpszClassName, "Plain");
    EXPECT_EQ(record->m_nObjectSize, static_cast<int>(sizeof(Plain)));
    EXPECT_EQ(record->m_wSchema, 0xFFFFu);
    EXPECT_EQ(record->m_pfnCreateObject, nullptr);
    EXPECT_EQ(record->m_pfnGetBaseClass(), RUNTIME_CLASS(CObject));
}

TEST(RuntimeClass, RootHasNoBase) {
    EXPECT_STREQ(RUNTIME_CLASS(CObject)->m_lpszClassName, "CObject");
    EXPECT_EQ(RUNTIME_CLASS(CObject)->m_pfnGetBaseClass, nullptr);
}

TEST(RuntimeClass, ObjectGivesTheRecordOfItsMostDerivedClass) {
    const Made made;
    const CObject& object = made;

    EXPECT_EQ(object.GetRuntimeClass(), RUNTIME_CLASS(Made));
}

TEST(RuntimeClass, ClassWithoutARecordPassesForItsBase) {
    const WithoutRecord object;

    EXPECT_EQ(object.GetRuntimeClass(), RUNTIME_CLASS(Made));
}

TEST(RuntimeClass, IsKindOfFollowsTheBases) {
    const Made made;

    EXPECT_TRUE(made.IsKindOf(RUNTIME_CLASS(Made)));
    EXPECT_TRUE(made.IsKindOf(RUNTIME_CLASS(Plain)));
    EXPECT_TRUE(made.IsKindOf(RUNTIME_CLASS(CObject)));
    EXPECT_FALSE(made.IsKindOf(RUNTIME_CLASS(Unrelated)));
    EXPECT_FALSE(Plain().IsKindOf(RUNTIME_CLASS(Made)));
    EXPECT_FALSE(Unrelated().IsKindOf(RUNTIME_CLASS(Plain)));
}

TEST(RuntimeClass, CreateObjectMakesOneWhereTheClassCan) {
    const std::unique_ptr<CObject> made(RUNTIME_CLASS(Made)->CreateObject());

    ASSERT_NE(made, nullptr);
    EXPECT_TRUE(made->IsKindOf(RUNTIME_CLASS(Made)));
    EXPECT_EQ(RUNTIME_CLASS(Plain)->CreateObject(), nullptr);
}

TEST(RuntimeClass, FrameworkClassesHaveTheirPublishedBases) {
    struct Row {
        const CRuntimeClass* record;
        const char* name;
        const CRuntimeClass* base;
    };
    const Row rows[] = {
        {RUNTIME_CLASS(CCmdTarget), "CCmdTarget", RUNTIME_CLASS(CObject)},
        {RUNTIME_CLASS(CWnd), "CWnd", RUNTIME_CLASS(CCmdTarget)},
        {RUNTIME_CLASS(CStatic), "CStatic", RUNTIME_CLASS(CWnd)},
        {RUNTIME_CLASS(CButton), "CButton", RUNTIME_CLASS(CWnd)},
        {RUNTIME_CLASS(CDC), "CDC", RUNTIME_CLASS(CObject)},
        {RUNTIME_CLASS(CPaintDC), "CPaintDC", RUNTIME_CLASS(CDC)},
        {RUNTIME_CLASS(CClientDC), "CClientDC", RUNTIME_CLASS(CDC)},
        {RUNTIME_CLASS(CNotSupportedException), "CNotSupportedException",
         RUNTIME_CLASS(CException)},
    };
    for (const Row& row : rows) {
        EXPECT_STREQ(row.record->m_lpszClassName, row.name);
        EXPECT_EQ(row.record->m_pfnGetBaseClass(), row.base) << row.name;
        EXPECT_EQ(row.record->m_wSchema, 0xFFFFu) << row.name;
    }
}

TEST(NotSupportedException, IsThrownByPointerAndDeletedByItsCatcher) {
    try {
        AfxThrowNotSupportedException();
        FAIL() << "nothing was thrown";
    } catch (CException* exception) {
        EXPECT_TRUE(exception->IsKindOf(RUNTIME_CLASS(CNotSupportedException)));
        exception->Delete();
    }
}
