// How deep LISP may call itself in drafthost.exe.

#include "host_run.h"

#include <gtest/gtest.h>

TEST(RecursionLimits, LispMayCallItselfTenThousandDeep) {
    const HostRun run(L"",
                      L"(defun down (n) (if (= n 0) 0 (+ 1 (down (- n 1)))))\n(down 10000)\n"
                      L"(defun endless (n) (setq deepest n) (endless (+ n 1)))\n(endless 1)\n"
                      L"(+ 1 1)\nQUIT\n");

    EXPECT_EQ(run.Shown(L"(down 10000)"), L"10000");
    EXPECT_EQ(run.Shown(L"(endless 1)"), L"; error: internal stack limit reached");
    EXPECT_EQ(run.Shown(L"(+ 1 1)"), L"2");
}
