// The host's drawings in this program, without modules.

#include "captured_output.h"
#include "opened_drawing.h"
#include "runtime/control.h"

#include "accmd.h"
#include "rxregsvc.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace {

std::optional<bool> g_isClosed;

void CloseFromCommand() {
    g_isClosed = drafthost::CloseDrawing();
}

/// Closes the drawing when it is asked for a line.
class ClosingInput : private drafthost::LineInput {
  public:
    ClosingInput() { drafthost::SetLineInput(this); }
    ClosingInput(const ClosingInput&) = delete;
    ClosingInput& operator=(const ClosingInput&) = delete;
    ~ClosingInput() override { drafthost::SetLineInput(nullptr); }

  private:
    std::optional<std::wstring> ReadLine(const std::wstring&) override {
        g_isClosed = drafthost::CloseDrawing();
        return L"line";
    }
};

std::wstring TitleInFront() {
    for (const drafthost::DrawingInfo& drawing : drafthost::Drawings()) {
        if (drawing.isActive) return drawing.title;
    }
    return L"none";
}

}  // namespace

TEST(CloseDrawing, IsRefusedToACommandThatRuns) {
    const CapturedOutput output;
    const OpenedDrawing drawing;
    auto* stack =
        static_cast<AcEdCommandStack*>(acrxSysRegistry()->at(L"ACAD_REGISTERED_COMMANDS"));
    stack->addCommand(L"TEST", L"TestClose", L"TestClose", ACRX_CMD_MODAL, &CloseFromCommand);
    g_isClosed.reset();

    EXPECT_EQ(drafthost::RunCommand(L"TestClose"), drafthost::CommandResult::Done);

    EXPECT_EQ(g_isClosed, false);
    EXPECT_EQ(drafthost::Drawings().size(), 1u);
    stack->removeGroup(L"TEST");
}

TEST(CloseDrawing, IsRefusedWhileLispWaitsForALine) {
    const CapturedOutput output;
    const OpenedDrawing drawing;
    const ClosingInput input;
    g_isClosed.reset();

    EXPECT_TRUE(drafthost::EvaluateLisp(L"(getstring)"));

    EXPECT_EQ(g_isClosed, false);
    EXPECT_EQ(drafthost::Drawings().size(), 1u);
}

TEST(CloseDrawing, WithoutADrawingIsFalse) {
    EXPECT_TRUE(drafthost::Drawings().empty());
    EXPECT_FALSE(drafthost::CloseDrawing());
}

TEST(ActivateDrawing, FindsATitleInAnyCaseAndWithoutItsExtension) {
    const CapturedOutput output;
    const OpenedDrawing first;
    const std::wstring title = TitleInFront();
    const std::wstring name = title.substr(0, title.size() - 4);
    const OpenedDrawing second;
    const std::wstring other = TitleInFront();

    for (const std::wstring& wanted : {title, name, L"d" + name.substr(1)}) {
        ASSERT_TRUE(drafthost::ActivateDrawing(other));
        EXPECT_TRUE(drafthost::ActivateDrawing(wanted)) << testing::PrintToString(wanted);
        EXPECT_EQ(TitleInFront(), title) << testing::PrintToString(wanted);
    }
    EXPECT_FALSE(drafthost::ActivateDrawing(name.substr(0, name.size() - 1)));
    EXPECT_EQ(TitleInFront(), title);
}
