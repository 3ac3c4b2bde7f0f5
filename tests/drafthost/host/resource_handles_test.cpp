// The stack of resource handles and the framework's current one.

#include "acdocman.h"
#include "afxext.h"

#include <gtest/gtest.h>

TEST(ResourceHandle, PushAndPopNest) {
    const HINSTANCE before = AfxGetResourceHandle();
    const auto first = reinterpret_cast<HINSTANCE>(0x10000);
    const auto second = reinterpret_cast<HINSTANCE>(0x20000);

    acDocManagerPtr()->pushResourceHandle(first);
    acDocManagerPtr()->pushResourceHandle(second);
    EXPECT_EQ(AfxGetResourceHandle(), second);
    acDocManagerPtr()->popResourceHandle();
    EXPECT_EQ(AfxGetResourceHandle(), first);
    acDocManagerPtr()->popResourceHandle();

    EXPECT_EQ(AfxGetResourceHandle(), before);
}
