#include "runtime/checked_element.h"

#include "support/invalid_parameter_scope.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

class CheckedElementTest : public testing::Test {
  protected:
    const std::vector<int> m_elements = {10, 11, 12};

  private:
    InvalidParameterScope m_scope;
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
