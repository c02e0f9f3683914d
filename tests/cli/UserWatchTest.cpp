#include <VanticRestKit/trelvo/detail/TrelvoProbe.h>

#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <map>
#include <thread>
#include <utility>

#include "user/UserHost.h"
#include "user/WatchedContext.h"

using namespace vantic;
using VanticRestKit::AnyPublisher;
using VanticRestKit::Cancellable;
using VanticRestKit::Data;
using VanticRestKit::Error;
using VanticRestKit::Result;
using VanticRestKit::Serviceable;
using VanticRestKit::Subscriber;
using VanticRestKit::Trelvo;
using VanticRestKit::TrelvoError;
using VanticRestKit::TrelvoProbe;
using VanticRestKit::URL;
using VanticRestKit::URLRequest;

namespace {

/// Holds requests until the test answers them, by their paths.
class Answers {
public:
    Serve serve() {
        return [this](const URLRequest& request) {
            return std::make_shared<Held>(*this, request.url()->path());
        };
    }

    /// Waits for a request with this path and answers it.
    void answer(const std::string& path, const char* body) {
        std::unique_lock lock(mutex_);
        ASSERT_TRUE(arrived_.wait_for(lock, std::chrono::minutes(1), [&] {
            return waiting_.count(path) > 0;
        })) << path;
        Serviceable::Completion completion = std::move(waiting_.extract(path).mapped());
        lock.unlock();
        completion(Data(body));
    }

private:
    class Held final : public Serviceable {
    public:
        Held(Answers& answers, std::string path) : answers_(answers), path_(std::move(path)) {}
        void fetch(FetchArguments arguments) override {
            const std::lock_guard lock(answers_.mutex_);
            answers_.waiting_.emplace(path_, std::move(arguments.with).value());
            answers_.arrived_.notify_all();
        }
        AnyPublisher<Data> fetch() override {
            return AnyPublisher<Data>::create([](Subscriber<Data, Error>) { return Cancellable(); });
        }

    private:
        Answers& answers_;
        std::string path_;
    };

    std::mutex mutex_;
    std::condition_variable arrived_;
    std::map<std::string, Serviceable::Completion> waiting_;
};

/// A context that builds no requests, or only token requests.
class Unbuildable final : public VanticRestKit::TrelvoContext {
public:
    explicit Unbuildable(Answers* answers = nullptr) : answers_(answers) {}
    std::optional<std::string> uid() const override { return "ann"; }
    VanticRestKit::SourceSystem source() const override { return VanticRestKit::SourceSystem::lumeno; }
    URL baseURL() const override { return *URL::make("http://h"); }
    std::optional<URLRequest> generateURLRequest(URLRequestArguments arguments) const override {
        if (answers_ == nullptr || arguments.usingPath.value() != "v2/token") return std::nullopt;
        return Context::generateURLRequest(std::move(arguments));
    }
    std::shared_ptr<Serviceable> service(ServiceArguments arguments) const override {
        return answers_->serve()(std::move(arguments.withURLRequest).value());
    }

private:
    Answers* answers_;
};

CommonOptions options() {
    return {.baseURL = *URL::make("http://h"),
            .headers = {},
            .timeout = {},
            .authorityFile = {},
            .isVerbose = false};
}

constexpr const char* token =
    R"({"auth":{"access_token":"a","refresh_token":"r","token_type":"t","expiry":1e9}})";

/// Runs the deletion of a profile on a separate thread.
class Deletion {
public:
    explicit Deletion(Answers& answers)
        : host_(options(), "ann", answers.serve()), running_([this] {
              trelvo_.deleteSubprofile(
                  {.completionHandler = Trelvo::Completion<void>(
                       [this](Result<void, TrelvoError>) { watch->setOutcome(std::string("deleted")); })},
                  WatchedContext(host_, watch));
              watch->operationReturned();
          }) {}
    ~Deletion() { running_.join(); }

    const std::shared_ptr<RequestWatch> watch = std::make_shared<RequestWatch>();

private:
    Trelvo trelvo_ = TrelvoProbe::make([] { return 0.0; });
    UserHost host_;
    std::thread running_;
};

/// Waits at most `atMost` for the end. Returns whether it has come.
bool hasEnded(std::future<std::optional<UserText>>& end, std::chrono::milliseconds atMost) {
    return end.wait_for(atMost) == std::future_status::ready;
}

}  // namespace

TEST(RequestWatch, EndsWhenRequestsWithoutACompletionHaveEnded) {
    Answers answers;
    Deletion deletion(answers);
    auto end = std::async(std::launch::async, [&] { return deletion.watch->outcomeAtTheEnd(); });
    answers.answer("/v2/token", token);
    answers.answer("/v2/dataset/profile", "{}");
    while (!deletion.watch->outcomeSoFar()) std::this_thread::yield();
    EXPECT_FALSE(hasEnded(end, std::chrono::milliseconds(0)))
        << "the outcome is known, but two requests are still running";
    answers.answer("/v2/history", "{}");
    EXPECT_FALSE(hasEnded(end, std::chrono::milliseconds(0)));
    answers.answer("/v2/saved/watchlist", "{}");
    ASSERT_TRUE(hasEnded(end, std::chrono::minutes(1)));
    const auto outcome = end.get();
    ASSERT_TRUE(outcome && *outcome);
    EXPECT_EQ(**outcome, "deleted");
}

TEST(RequestWatch, EndsWithoutAnOutcomeIfTheOperationSendsNoRequest) {
    const auto watch = std::make_shared<RequestWatch>();
    watch->operationReturned();
    EXPECT_FALSE(watch->outcomeAtTheEnd());
}

TEST(RequestWatch, EndsEvenIfAServiceIsDestroyedWithoutRunning) {
    Answers answers;
    const auto watch = std::make_shared<RequestWatch>();
    const UserHost host(options(), "ann", answers.serve());
    WatchedContext(host, watch).service({.withURLRequest = URLRequest(*URL::make("http://h"))});
    watch->operationReturned();
    EXPECT_FALSE(watch->outcomeAtTheEnd());
}

TEST(WatchedContext, EndsTheWaitIfTheTokenCannotBeRequested) {
    const auto watch = std::make_shared<RequestWatch>();
    // Its thread never ends, so the objects that it uses are never released.
    Trelvo& trelvo = *new Trelvo(TrelvoProbe::make([] { return 0.0; }));
    std::thread([&trelvo, watch] {
        trelvo.deleteHistory(
            {.completionHandler = Trelvo::Completion<void>([](Result<void, TrelvoError>) {})},
            WatchedContext(Unbuildable(), watch));
        watch->operationReturned();
    }).detach();
    EXPECT_FALSE(watch->outcomeAtTheEnd()) << "the operation has not returned";
}

TEST(WatchedContext, EndsTheWaitIfTheDataCannotBeRequested) {
    Answers answers;
    const auto watch = std::make_shared<RequestWatch>();
    auto running = std::async(std::launch::async, [&] {
        Trelvo trelvo = TrelvoProbe::make([] { return 0.0; });
        trelvo.deleteHistory(
            {.completionHandler = Trelvo::Completion<void>([](Result<void, TrelvoError>) {})},
            WatchedContext(Unbuildable(&answers), watch));
        watch->operationReturned();
    });
    answers.answer("/v2/token", token);
    EXPECT_FALSE(watch->outcomeAtTheEnd());
}
