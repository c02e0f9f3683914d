#include "user/RequestWatch.h"

#include <utility>

namespace vantic {

using namespace VanticRestKit;

/// One request that is under way, for as long as this lives.
class RequestWatch::UnderWay {
public:
    explicit UnderWay(std::shared_ptr<RequestWatch> watch) : watch_(std::move(watch)) {
        watch_->change([&] { ++watch_->underWay_; });
    }
    ~UnderWay() {
        watch_->change([&] { --watch_->underWay_; });
    }
    UnderWay(const UnderWay&) = delete;
    UnderWay& operator=(const UnderWay&) = delete;

private:
    std::shared_ptr<RequestWatch> watch_;
};

class RequestWatch::Watched final : public Serviceable {
public:
    Watched(std::shared_ptr<Serviceable> service, std::shared_ptr<RequestWatch> watch)
        : service_(std::move(service)), underWay_(std::make_unique<UnderWay>(std::move(watch))) {}

    void fetch(FetchArguments arguments) override {
        service_->fetch({.with = [completion = std::move(arguments.with).value(),
                                  underWay = std::move(underWay_)](Result<Data, Error> outcome) mutable {
            completion(std::move(outcome));
            underWay.reset();
        }});
    }
    AnyPublisher<Data> fetch() override { return service_->fetch(); }

private:
    std::shared_ptr<Serviceable> service_;
    std::unique_ptr<UnderWay> underWay_;
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

void RequestWatch::told(UserText outcome) {
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
    changed_.wait(lock, [this] { return isStuck_ || (hasReturned_ && underWay_ == 0); });
    return outcome_;
}

}  // namespace vantic
