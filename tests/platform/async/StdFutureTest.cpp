#include <gtest/gtest.h>
#include <VanticRestKit/platform/async/StdFuture.h>

#include <platform/async/ManualOperation.h>

#include <chrono>

namespace VanticRestKit {
namespace {

TEST(AStdFuture, HasTheOutcomeOfTheOriginalFuture) {
    const auto source = std::make_shared<test::ManualOperationSource>();
    std::future<test::Number> future = toStdFuture(Operation<test::Number>(source).future());
    EXPECT_EQ(future.wait_for(std::chrono::seconds(0)), std::future_status::timeout);
    source->answer(7);
    EXPECT_EQ(*future.get(), 7);
    source->forget();
}

}  // namespace
}  // namespace VanticRestKit
