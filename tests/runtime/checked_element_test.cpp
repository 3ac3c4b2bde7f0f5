#include "runtime/checked_element.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <vector>

namespace {

struct LeftByHandler {};

void LeaveByException(const wchar_t*, const wchar_t*, const wchar_t*, unsigned, uintptr_t) {
    throw LeftByHandler();
}

class CheckedElementTest : public testing::Test {
  protected:
    CheckedElementTest() { m_before = _set_invalid_parameter_handler(LeaveByException); }
    ~CheckedElementTest() override { _set_invalid_parameter_handler(m_before); }

    const std::vector<int> m_elements = {10, 11, 12};

  private:
    _invalid_parameter_handler m_before;
};

}  // namespace

TEST_F(CheckedElementTest, GivesTheElementAtAnIndexInside) {
    EXPECT_EQ(CheckedElement(m_elements, 0), 10);
    EXPECT_EQ(&CheckedElement(m_elements, 2), &m_elements[2]);
}

TEST_F(CheckedElementTest, LeavesByTheInvalidParameterHandlerOutside) {
    EXPECT_THROW(CheckedElement(m_elements, 3), LeftByHandler);
    EXPECT_THROW(CheckedElement(m_elements, -1), LeftByHandler);
    EXPECT_THROW(CheckedElement(std::vector<int>(), 0), LeftByHandler);
}
