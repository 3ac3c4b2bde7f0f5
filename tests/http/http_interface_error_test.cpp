#include "http/http_interface_error.h"

#include <gtest/gtest.h>

TEST(HttpInterfaceError, HasTheNumbersOfTheInterface) {
    EXPECT_EQ(HttpErrorNone, 0);
    EXPECT_EQ(HttpErrorRequest, 1);
    EXPECT_EQ(HttpErrorConnect, 2);
    EXPECT_EQ(HttpErrorSend, 3);
    EXPECT_EQ(HttpErrorNotFound, 5);
}

TEST(HttpInterfaceError, NamesTheFailedStep) {
    EXPECT_EQ(ErrorOfFailedStep(HttpStep::Open), HttpErrorRequest);
    EXPECT_EQ(ErrorOfFailedStep(HttpStep::Connect), HttpErrorConnect);
    EXPECT_EQ(ErrorOfFailedStep(HttpStep::OpenRequest), HttpErrorRequest);
    EXPECT_EQ(ErrorOfFailedStep(HttpStep::Send), HttpErrorSend);
    EXPECT_EQ(ErrorOfFailedStep(HttpStep::Receive), HttpErrorRequest);
}
