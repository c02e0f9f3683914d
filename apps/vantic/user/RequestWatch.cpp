#include "user/RequestWatch.h"

#include <utility>

namespace vantic {

using namespace VanticRestKit;

/// Counts a request as in progress while this object exists.
class RequestWatch::OpenRequest {
public:
    explicit OpenRequest(std::shared_ptr<RequestWatch> watch) : watch_(std::move(watch)) {
        watch_->change([&] { ++watch_->openRequests_; });
    }
    ~OpenRequest() {
        watch_->change([&] { --watch_->openRequests_; });
    }
    OpenRequest(const OpenRequest&) = delete;
    OpenRequest& operator=(const OpenRequest&) = delete;

private:
    std::shared_ptr<RequestWatch> watch_;
};

class RequestWatch::Watched final : public Serviceable {
public:
    Watched(std::shared_ptr<Serviceable> service, std::shared_ptr<RequestWatch> watch)
        : service_(std::move(service)), request_(std::make_unique<OpenRequest>(std::move(watch))) {}

    void fetch(FetchArguments arguments) override {
        service_->fetch({.with = [completion = std::move(arguments.with).value(),
                                  request = std::move(request_)](Result<Data, Error> outcome) mutable {
            completion(std::move(outcome));
            request.reset();
        }});
    }
    AnyPublisher<Data> fetch() override { return service_->fetch(); }

private:
    std::shared_ptr<Serviceable> service_;
    std::unique_ptr<OpenRequest> request_;
};

template <class Change>
void RequestWatch::change(Change change) {
    const std::lock_guard lock(mutex_);
    change();
    changed_.notify_all();
}

std::shared_ptr<Serviceable> RequestWatch::watched(std::shared_ptr<Serviceable> service) {
    return std::make_shared<Watched>(std::move(service), shared_from_this());
}

void RequestWatch::setOutcome(UserText outcome) {
    change([&] { outcome_ = std::move(outcome); });
}

void RequestWatch::operationReturned() {
    change([&] { hasReturned_ = true; });
}

void RequestWatch::operationIsStuck() {
    change([&] { isStuck_ = true; });
}

std::optional<UserText> RequestWatch::outcomeSoFar() {
    const std::lock_guard lock(mutex_);
    return outcome_;
}

std::optional<UserText> RequestWatch::outcomeAtTheEnd() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return isStuck_ || (hasReturned_ && openRequests_ == 0); });
    return outcome_;
}

}  // namespace vantic
