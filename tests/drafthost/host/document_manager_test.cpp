// Documents and reactors as the program itself sees them.

#include "captured_output.h"
#include "runtime/control.h"

#include "acdocman.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

class Reactor : public AcApDocManagerReactor {
  public:
    Reactor() { acDocManagerPtr()->addReactor(this); }
    ~Reactor() override {
        if (!m_hasLeft) acDocManagerPtr()->removeReactor(this);
    }

    void documentCreated(AcApDocument* document) override {
        m_seen.push_back(document->docTitle());
        if (m_leavesAtOnce) Leave();
    }
    void documentToBeDestroyed(AcApDocument* document) override {
        m_seen.push_back(std::wstring(L"-") + document->docTitle());
    }

    void Leave() {
        acDocManagerPtr()->removeReactor(this);
        m_hasLeft = true;
    }

    std::vector<std::wstring> m_seen;
    bool m_leavesAtOnce = false;

  private:
    bool m_hasLeft = false;
};

}  // namespace

TEST(DocumentManager, IsThereForStaticConstructors) {
    static const bool wasThere = acDocManagerPtr() != nullptr;

    EXPECT_TRUE(wasThere);
    EXPECT_EQ(acDocManagerPtr()->isA(), AcApDocManager::desc());
}

TEST(DocumentManager, TellsAReactorOfADrawingsBeginAndEnd) {
    const CapturedOutput output;
    Reactor reactor;
    const int before = acDocManagerPtr()->documentCount();

    drafthost::NewDrawing();
    const std::wstring title = acDocManagerPtr()->curDocument()->docTitle();
    EXPECT_EQ(acDocManagerPtr()->documentCount(), before + 1);
    EXPECT_EQ(acDocManagerPtr()->curDocument(), acDocManagerPtr()->mdiActiveDocument());
    drafthost::CloseDrawing();

    EXPECT_EQ(reactor.m_seen, (std::vector<std::wstring>{title, L"-" + title}));
    EXPECT_EQ(acDocManagerPtr()->documentCount(), before);
}

TEST(DocumentManager, AReactorMayLeaveWhileItIsTold) {
    const CapturedOutput output;
    Reactor first;
    Reactor second;
    first.m_leavesAtOnce = true;

    drafthost::NewDrawing();
    drafthost::CloseDrawing();

    EXPECT_EQ(first.m_seen.size(), 1u);
    EXPECT_EQ(second.m_seen.size(), 2u);
}

TEST(DocumentManager, ANewDrawingHasItsTitleForAPath) {
    const CapturedOutput output;
    drafthost::NewDrawing();
    const AcApDocument* document = acDocManagerPtr()->curDocument();

    EXPECT_STREQ(document->fileName(), document->docTitle());
    drafthost::CloseDrawing();
}
