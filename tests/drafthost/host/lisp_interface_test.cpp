// The C functions for LISP where no module and no drawing is, and the lists of values.

#include "captured_output.h"
#include "opened_drawing.h"
#include "runtime/control.h"

#include "acdocman.h"
#include "acedads.h"
#include "acutads.h"

#include <gtest/gtest.h>

namespace {

int AnswerWithCode() {
    acedRetInt(acedGetFunCode());
    return RSRSLT;
}

}  // namespace

TEST(LispInterface, OutsideOfADrawingNothingIsDefinedOrQueued) {
    EXPECT_EQ(acDocManagerPtr()->curDocument(), nullptr);
    EXPECT_EQ(acedDefun(L"f", 0), RTERROR);
    EXPECT_EQ(acedUndef(L"f", 0), RTERROR);
    EXPECT_EQ(ads_queueexpr(L"(f)"), RTERROR);
}

TEST(LispInterface, OutsideOfACallThereIsNothingToAnswer) {
    EXPECT_EQ(acedGetFunCode(), RTERROR);
    EXPECT_EQ(acedGetArgs(), nullptr);
    EXPECT_EQ(acedRetStr(L"text"), RTERROR);
    EXPECT_EQ(acedRetStr(nullptr), RTERROR);
    EXPECT_EQ(acedRetNil(), RTERROR);
    EXPECT_EQ(acedRetList(nullptr), RTERROR);
}

TEST(LispInterface, AFunctionIsUndefinedByNameAndCode) {
    const CapturedOutput output;
    const OpenedDrawing drawing;

    EXPECT_EQ(acedDefun(L"test-function", 3), RTNORM);
    EXPECT_EQ(acedUndef(L"test-function", 2), RTERROR) << "another code";
    EXPECT_EQ(acedUndef(L"TEST-FUNCTION", 3), RTNORM) << "any case";
    EXPECT_EQ(acedUndef(L"test-function", 3), RTERROR) << "gone already";
    EXPECT_EQ(acedDefun(L"", 0), RTERROR);
    EXPECT_EQ(acedDefun(nullptr, 0), RTERROR);
}

TEST(LispInterface, ASecondDefinitionReplacesTheFirst) {
    const CapturedOutput output;
    const OpenedDrawing drawing;
    acedDefun(L"test-function", 1);
    acedDefun(L"test-function", 2);

    EXPECT_EQ(acedUndef(L"test-function", 1), RTERROR);
    EXPECT_EQ(acedUndef(L"test-function", 2), RTNORM);
}

TEST(LispInterface, ADirectFunctionIsCalledWithItsCode) {
    const CapturedOutput output;
    const OpenedDrawing drawing;
    acedDefun(L"test-function", 70);
    EXPECT_EQ(acedRegFunc(AnswerWithCode, 70), RTNORM);
    EXPECT_EQ(acedRegFunc(nullptr, 71), RTERROR);

    EXPECT_TRUE(drafthost::EvaluateLisp(L"(test-function)"));

    EXPECT_EQ(output.Text(), L"70\n");
    acedUndef(L"test-function", 70);
}

TEST(LispInterface, QueuedExpressionsAreEvaluatedBehindTheRunningOne) {
    const CapturedOutput output;
    const OpenedDrawing drawing;
    ads_queueexpr(L"(princ \"queued\")");
    EXPECT_EQ(ads_queueexpr(nullptr), RTERROR);

    drafthost::EvaluateLisp(L"(princ \"first \")");

    EXPECT_EQ(output.Text(), L"first \n\"first \"\nqueued");
}

TEST(LispInterface, AFailedQueuedExpressionIsToldAndTheNextOneEvaluated) {
    const CapturedOutput output;
    const OpenedDrawing drawing;
    ads_queueexpr(L"(car 5)");
    ads_queueexpr(L"(princ \"next\")");

    drafthost::EvaluateLisp(L"(princ)");

    EXPECT_EQ(output.Text(), L"; error: bad argument type: consp 5\nnext");
}

TEST(BuildList, TakesPairsOfTypeAndValue) {
    const ads_point point = {1, 2, 3};
    resbuf* list = acutBuildList(RTLB, RTSHORT, 5, RTLONG, 70000, RTREAL, 1.5, RTSTR, L"中文",
                                 RT3DPOINT, point, RTNIL, RTT, RTLE, 0);

    ASSERT_NE(list, nullptr);
    const resbuf* item = list;
    EXPECT_EQ(item->restype, RTLB);
    item = item->rbnext;
    EXPECT_EQ(item->resval.rint, 5);
    item = item->rbnext;
    EXPECT_EQ(item->resval.rlong, 70000);
    item = item->rbnext;
    EXPECT_EQ(item->resval.rreal, 1.5);
    item = item->rbnext;
    EXPECT_STREQ(item->resval.rstring, L"中文");
    item = item->rbnext;
    EXPECT_EQ(item->resval.rpoint[2], 3);
    EXPECT_EQ(item->rbnext->rbnext->rbnext->restype, RTLE);
    EXPECT_EQ(acutRelRb(list), RTNORM);
}

TEST(BuildList, OfAnUnknownTypeIsNull) {
    EXPECT_EQ(acutBuildList(RTSTR, L"released again", 1234, 0), nullptr);
    EXPECT_EQ(acutBuildList(0), nullptr);
    EXPECT_EQ(acutRelRb(nullptr), RTNORM);
}
