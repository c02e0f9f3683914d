#include <gtest/gtest.h>
#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/Core/Serviceable.h>
#include <VanticRestKit/platform/error/NSError.h>

#include <memory>
#include <string>
#include <vector>

namespace VanticRestKit {
namespace {

/// A service that overrides only the callback functions and answers at once.
class SmallService final : public Serviceable {
public:
    using Serviceable::fetch;
    explicit SmallService(Result<Data, Error> answer) : answer_(std::move(answer)) {}
    void fetch(FetchArguments arguments) override {
        ++requests;
        std::move(arguments.with).value()(answer_);
    }

    int requests = 0;

private:
    Result<Data, Error> answer_;
};

std::vector<std::string> seenOf(const AnyPublisher<Data>& publisher) {
    std::vector<std::string> seen;
    const Cancellable subscription = publisher.sink(
        [&seen](const Data& body) { seen.emplace_back(body.view()); },
        [&seen](const Result<void, Error>& end) { seen.push_back(end ? "end" : end.error().domain()); });
    return seen;
}

TEST(Serviceable, ADefaultPublisherRunsTheRequestForEachSubscription) {
    SmallService service(Data("5"));
    const AnyPublisher<Data> publisher = service.fetch();
    EXPECT_EQ(service.requests, 0);
    EXPECT_EQ(seenOf(publisher), (std::vector<std::string>{"5", "end"}));
    EXPECT_EQ(seenOf(publisher), (std::vector<std::string>{"5", "end"}));
    EXPECT_EQ(service.requests, 2);
}

TEST(Serviceable, ADefaultPublisherDeliversTheErrorOfTheRequest) {
    SmallService service(Failure(Error(NSError("D", 1))));
    EXPECT_EQ(seenOf(service.fetch()), std::vector<std::string>{"D"});
}

TEST(Serviceable, TheDefaultStartIsBuiltOnTheCallbackAndCanBeCancelled) {
    SmallService service(Data("5"));
    std::string seen;
    const Cancellable handle =
        service.start({.with = [&seen](const Result<Data, Error>& body) { seen = body->view(); }});
    EXPECT_EQ(seen, "5");
}

TEST(Serviceable, ALoadersPublisherKeepsTheServiceAlive) {
    const auto publisher = Loader<double>::make({.with = std::make_shared<SmallService>(Data("5"))})
                               ->load({.decoder = JSONDecoder()});
    double seen = 0;
    const Cancellable subscription = publisher.sink([&seen](double value) { seen = value; });
    EXPECT_EQ(seen, 5.0);
}

}  // namespace
}  // namespace VanticRestKit
