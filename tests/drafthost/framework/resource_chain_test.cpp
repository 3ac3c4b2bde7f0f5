#include "support/child_process.h"

#include <acui.h>
#include <afxext.h>

#include <gtest/gtest.h>

#include <string>

namespace {

/// An extension module of resources, attached for the life of this object.
class AttachedModule {
  public:
    explicit AttachedModule(const std::wstring& name)
        : m_module(LoadLibraryW((ProgramFolder() + L"\\" + name).c_str())) {
        AfxInitExtensionModule(m_state, m_module);
        new CDynLinkLibrary(m_state);  // Deleted by AfxTermExtensionModule.
    }
    AttachedModule(const AttachedModule&) = delete;
    AttachedModule& operator=(const AttachedModule&) = delete;
    ~AttachedModule() {
        AfxTermExtensionModule(m_state);
        FreeLibrary(m_module);
    }

    HMODULE Handle() const { return m_module; }

  private:
    HMODULE m_module;
    AFX_EXTENSION_MODULE m_state = {};
};

class ResourceChain : public testing::Test {
  protected:
    ~ResourceChain() override { AfxSetResourceHandle(nullptr); }

    static HINSTANCE Find(int id) { return AfxFindResourceHandle(MAKEINTRESOURCEW(id), RT_RCDATA); }

    const HMODULE m_program = GetModuleHandleW(nullptr);
};

}  // namespace

TEST_F(ResourceChain, StartsAtTheProgramWhenNothingElseIsThere) {
    EXPECT_EQ(AfxGetResourceHandle(), m_program);
    EXPECT_EQ(Find(301), m_program);
}

TEST_F(ResourceChain, GoesThroughTheModulesFromTheNewestAndEndsAtTheProgram) {
    const AttachedModule a(L"framework_chain_a.dll");
    const AttachedModule b(L"framework_chain_b.dll");

    EXPECT_EQ(Find(301), b.Handle()) << "the newer of the two that have it";
    EXPECT_EQ(Find(302), a.Handle());
    EXPECT_EQ(Find(303), b.Handle());
    EXPECT_EQ(Find(304), m_program);
}

TEST_F(ResourceChain, ResourceHandleComesFirst) {
    const AttachedModule a(L"framework_chain_a.dll");
    const AttachedModule b(L"framework_chain_b.dll");

    AfxSetResourceHandle(a.Handle());

    EXPECT_EQ(AfxGetResourceHandle(), a.Handle());
    EXPECT_EQ(Find(301), a.Handle());
    EXPECT_EQ(Find(303), b.Handle()) << "which a hasn't";
}

TEST_F(ResourceChain, ResourceHandleOfTheProgramIsTheSameAsNone) {
    const AttachedModule a(L"framework_chain_a.dll");
    const HINSTANCE before = AfxGetResourceHandle();

    AfxSetResourceHandle(a.Handle());
    AfxSetResourceHandle(before);

    EXPECT_EQ(AfxGetResourceHandle(), m_program);
    EXPECT_EQ(Find(302), a.Handle());
}

TEST_F(ResourceChain, GivesTheResourceHandleForWhatNobodyHas) {
    const AttachedModule a(L"framework_chain_a.dll");

    EXPECT_EQ(Find(4711), m_program);
    AfxSetResourceHandle(a.Handle());
    EXPECT_EQ(Find(4711), a.Handle());
}

TEST_F(ResourceChain, DetachedModuleIsOutOfTheChain) {
    { const AttachedModule a(L"framework_chain_a.dll"); }

    EXPECT_EQ(Find(302), m_program);
}

TEST_F(ResourceChain, SecondAttachOfAModuleDoesNothing) {
    AFX_EXTENSION_MODULE state = {};
    EXPECT_TRUE(AfxInitExtensionModule(state, m_program));
    state.hResource = nullptr;

    EXPECT_TRUE(AfxInitExtensionModule(state, m_program));

    EXPECT_EQ(state.hResource, nullptr) << "left as it was";
    AfxTermExtensionModule(state);
    EXPECT_FALSE(state.bInitialized);
}

TEST_F(ResourceChain, DialogsOwnInstanceComesFirstWhileItRuns) {
    const AttachedModule a(L"framework_chain_a.dll");
    struct Probe : CAdUiDialog {
        explicit Probe(HINSTANCE resources) : CAdUiDialog(200, nullptr, resources) {}
        HINSTANCE m_meanwhile = nullptr;
        BOOL OnInitDialog() override {
            m_meanwhile = AfxGetResourceHandle();
            EndDialog(IDOK);
            return CAdUiDialog::OnInitDialog();
        }
    } probe(a.Handle());

    EXPECT_EQ(probe.DoModal(), IDOK);

    EXPECT_EQ(probe.m_meanwhile, a.Handle());
    EXPECT_EQ(AfxGetResourceHandle(), m_program);
}
