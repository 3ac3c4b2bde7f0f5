#include "accmd.h"
#include "rxregsvc.h"

#include <gtest/gtest.h>

namespace {

void Nothing() {}

AcEdCommandStack& Stack() {
    return *static_cast<AcEdCommandStack*>(acrxSysRegistry()->at(L"ACAD_REGISTERED_COMMANDS"));
}

/// Leaves the groups of the tests empty.
class CommandStackTest : public testing::Test {
  protected:
    ~CommandStackTest() override {
        for (const ACHAR* group : {L"G", L"H"})
            Stack().removeGroup(group);
    }
};

}  // namespace

TEST_F(CommandStackTest, KeepsWhatACommandIsGiven) {
    AcEdCommand* command = nullptr;
    const auto context = reinterpret_cast<AcEdUIContext*>(0x1234);
    const HINSTANCE resources = GetModuleHandleW(nullptr);

    EXPECT_EQ(Stack().addCommand(L"G", L"Global", L"局部", ACRX_CMD_TRANSPARENT, Nothing, context,
                                 -1, resources, &command),
              Acad::eOk);

    EXPECT_STREQ(command->globalName(), L"Global");
    EXPECT_STREQ(command->localName(), L"局部");
    EXPECT_EQ(command->commandFlags(), ACRX_CMD_TRANSPARENT);
    EXPECT_EQ(command->functionAddr(), &Nothing);
    EXPECT_EQ(command->UIContext(), context);
    EXPECT_EQ(command->resourceHandle(), resources);
    EXPECT_EQ(command->isA(), AcEdCommand::desc());
}

TEST_F(CommandStackTest, FindsByGlobalAndLocalNameInAnyCase) {
    Stack().addCommand(L"G", L"Global", L"Local", 0, Nothing);

    EXPECT_NE(Stack().lookupCmd(L"GLOBAL"), nullptr);
    EXPECT_NE(Stack().lookupCmd(L"local"), nullptr);
    EXPECT_EQ(Stack().lookupCmd(L"other"), nullptr);
    EXPECT_EQ(Stack().lookupCmd(nullptr), nullptr);
}

TEST_F(CommandStackTest, OfTwoGroupsTheLastOneCounts) {
    AcEdCommand* last = nullptr;
    Stack().addCommand(L"G", L"Same", L"Same", 0, Nothing);
    Stack().addCommand(L"H", L"Same", L"Same", 0, Nothing, nullptr, -1, nullptr, &last);

    EXPECT_EQ(Stack().lookupCmd(L"Same"), last);
}

TEST_F(CommandStackTest, RefusesADuplicateWithinItsGroup) {
    Stack().addCommand(L"G", L"Global", L"Local", 0, Nothing);

    EXPECT_EQ(Stack().addCommand(L"g", L"GLOBAL", L"Other", 0, Nothing), Acad::eDuplicateKey);
    EXPECT_EQ(Stack().addCommand(L"G", L"Other", L"local", 0, Nothing), Acad::eDuplicateKey);
    EXPECT_EQ(Stack().addCommand(L"G", L"Local", L"Other", 0, Nothing), Acad::eDuplicateKey);
}

TEST_F(CommandStackTest, RefusesMissingNamesAndFunction) {
    EXPECT_EQ(Stack().addCommand(nullptr, L"A", L"A", 0, Nothing), Acad::eInvalidInput);
    EXPECT_EQ(Stack().addCommand(L"", L"A", L"A", 0, Nothing), Acad::eInvalidInput);
    EXPECT_EQ(Stack().addCommand(L"G", nullptr, L"A", 0, Nothing), Acad::eInvalidInput);
    EXPECT_EQ(Stack().addCommand(L"G", L"A", nullptr, 0, Nothing), Acad::eInvalidInput);
    EXPECT_EQ(Stack().addCommand(L"G", L"A", L"A", 0, nullptr), Acad::eInvalidInput);
}

TEST_F(CommandStackTest, RemovesByGroupAndGlobalName) {
    Stack().addCommand(L"G", L"Global", L"Local", 0, Nothing);

    EXPECT_EQ(Stack().removeCmd(L"H", L"Global"), Acad::eKeyNotFound);
    EXPECT_EQ(Stack().removeCmd(L"G", L"Local"), Acad::eKeyNotFound) << "not by the local name";
    EXPECT_EQ(Stack().removeCmd(L"G", L"global"), Acad::eOk);
    EXPECT_EQ(Stack().lookupCmd(L"Global"), nullptr);
    EXPECT_EQ(Stack().removeCmd(nullptr, L"Global"), Acad::eInvalidInput);
}

TEST_F(CommandStackTest, RemovesAWholeGroup) {
    Stack().addCommand(L"G", L"A", L"A", 0, Nothing);
    Stack().addCommand(L"G", L"B", L"B", 0, Nothing);
    Stack().addCommand(L"H", L"C", L"C", 0, Nothing);

    EXPECT_EQ(Stack().removeGroup(L"g"), Acad::eOk);
    EXPECT_EQ(Stack().lookupCmd(L"B"), nullptr);
    EXPECT_NE(Stack().lookupCmd(L"C"), nullptr);
    EXPECT_EQ(Stack().removeGroup(L"G"), Acad::eKeyNotFound);
}
