// What happens while a load is being started, and to progress that is reported too late.

#include <gtest/gtest.h>
#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/Testing/ManualExecutor.h>

#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <vector>

namespace VanticRestKit {
namespace {

using Outcome = Result<double, LoaderError>;

/// A host's service whose transfers the test ends.
class OpenService final : public Serviceable {
public:
    void fetch(FetchArguments) override { ADD_FAILURE() << "the form that can be cancelled is expected"; }
    Cancellable start(FetchArguments arguments) override {
        completion.emplace(std::move(arguments.with).value());
        progress = std::move(arguments.progress);
        if (whileStarting) whileStarting();
        return Cancellable([this] {
            ++cancels;
            // It keeps the load alive, and the load this service.
            completion.reset();
        });
    }
    void answer(const char* body) { std::exchange(completion, std::nullopt).value()(Data(body)); }

    std::optional<Completion> completion{};
    ProgressReceiver progress{};
    std::function<void()> whileStarting{};
    int cancels = 0;
};

class ResourceStart : public ::testing::Test {
protected:
    Cancellable start(LoadOptions options) {
        options.on = executor.queue();
        options.progress = [this](const LoadProgress& progress) { bytes.push_back(progress.bytesReceived); };
        return Resource<double>({.withService = service, .andDecoder = JSONDecoder()})
            .start(std::move(options), [this](Outcome outcome) { outcomes.push_back(std::move(outcome)); });
    }

    Testing::ManualExecutor executor;
    std::shared_ptr<OpenService> service = std::make_shared<OpenService>();
    std::vector<Outcome> outcomes;
    std::vector<std::int64_t> bytes;
};

TEST_F(ResourceStart, ProgressArrivesOnTheQueueOfTheCompletion) {
    const Cancellable load = start({});
    service->progress({.bytesReceived = 5});
    EXPECT_TRUE(bytes.empty());
    executor.runAll();
    EXPECT_EQ(bytes, std::vector<std::int64_t>{5});
}

TEST_F(ResourceStart, ProgressThatIsStillInTheQueueWhenTheLoadIsCancelledIsDropped) {
    const Cancellable load = start({});
    service->progress({.bytesReceived = 5});
    load.cancel();
    executor.runAll();
    EXPECT_TRUE(bytes.empty());
    EXPECT_EQ(outcomes.size(), 1U);
}

TEST_F(ResourceStart, ProgressAfterTheOutcomeIsDropped) {
    start({}).detach();
    service->answer("1.5");
    executor.runAll();
    ASSERT_EQ(outcomes.size(), 1U);
    service->progress({.bytesReceived = 5});
    executor.runAll();
    EXPECT_TRUE(bytes.empty());
}

TEST_F(ResourceStart, AnAnswerWhileTheLoadIsBeingStartedDoesNotCancelTheTransfer) {
    service->whileStarting = [this] { service->answer("1.5"); };
    const Cancellable load = start({});
    executor.runAll();
    ASSERT_EQ(outcomes.size(), 1U);
    EXPECT_EQ(*outcomes[0], 1.5);
    EXPECT_EQ(service->cancels, 0);
}

TEST_F(ResourceStart, AStopWhileTheLoadIsBeingStartedCancelsTheTransfer) {
    std::stop_source stop;
    service->whileStarting = [&stop] { stop.request_stop(); };
    const Cancellable load = start({.stop = stop.get_token()});
    EXPECT_EQ(service->cancels, 1);
    executor.runAll();
    ASSERT_EQ(outcomes.size(), 1U);
    EXPECT_FALSE(outcomes[0]);
}

}  // namespace
}  // namespace VanticRestKit
