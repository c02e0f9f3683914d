#include <gtest/gtest.h>
#include <VanticRestKit/Core/RetryBudget.h>

#include <limits>

namespace VanticRestKit {
namespace {

int withdrawalsOf(RetryBudget& budget) {
    int count = 0;
    while (count < 1000 && budget.withdraw()) ++count;
    return count;
}

TEST(RetryBudget, StartsWithItsReserve) {
    RetryBudget budget;
    EXPECT_EQ(budget.balance(), RetryBudget::usualReserve);
    EXPECT_EQ(withdrawalsOf(budget), 10);
    EXPECT_EQ(budget.balance(), 0);
}

TEST(RetryBudget, TenFirstAttemptsPayForOneRetry) {
    RetryBudget budget(0.1, 0);
    for (int i = 0; i < 9; ++i) budget.deposit();
    EXPECT_FALSE(budget.withdraw());
    budget.deposit();
    EXPECT_TRUE(budget.withdraw());
    EXPECT_FALSE(budget.withdraw());
}

TEST(RetryBudget, NeverHoldsMoreThanItsReserve) {
    RetryBudget budget(0.5, 3);
    for (int i = 0; i < 100; ++i) budget.deposit();
    EXPECT_EQ(withdrawalsOf(budget), 3);
}

TEST(RetryBudget, AShareOfZeroAllowsOnlyTheReserve) {
    RetryBudget budget(0, 2);
    for (int i = 0; i < 100; ++i) budget.deposit();
    EXPECT_EQ(withdrawalsOf(budget), 2);
    budget.deposit();
    EXPECT_FALSE(budget.withdraw());
}

TEST(RetryBudget, NegativeNumbersAndNaNCountAsZero) {
    RetryBudget negative(-1, -1);
    negative.deposit();
    EXPECT_FALSE(negative.withdraw());
    RetryBudget noNumbers(std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::quiet_NaN());
    noNumbers.deposit();
    EXPECT_FALSE(noNumbers.withdraw());
}

}  // namespace
}  // namespace VanticRestKit
