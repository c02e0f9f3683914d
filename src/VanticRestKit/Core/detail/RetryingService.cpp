#include <VanticRestKit/Core/detail/RetryingService.h>

#include <VanticRestKit/Core/detail/RetryRun.h>

#include <utility>

namespace VanticRestKit::detail {

namespace {

/// A run with a completion.
class CompletionRun final : public RetryRun {
public:
    /// Starts an attempt: by `fetch` or by `start`.
    using Form = Cancellable (*)(Serviceable& service, Serviceable::FetchArguments arguments);

    /// `kept` is `owner`, or null if the run should not keep it alive.
    CompletionRun(const std::shared_ptr<RetryingService>& owner, std::shared_ptr<RetryingService> kept,
                  Form form, Serviceable::FetchArguments arguments)
        : RetryRun(owner->policy()),
          owner_(owner),
          kept_(std::move(kept)),
          form_(form),
          completion_(std::move(arguments.with).value()),
          metrics_(std::move(arguments.metrics)),
          progress_(std::move(arguments.progress)) {}

private:
    std::shared_ptr<CompletionRun> shared() {
        return std::static_pointer_cast<CompletionRun>(shared_from_this());
    }

    std::shared_ptr<Serviceable> service() const override {
        const std::shared_ptr<RetryingService> owner = owner_.lock();
        return owner ? owner->service() : nullptr;
    }
    Cancellable send(Serviceable& sender) override {
        return form_(sender, {.with =
                                  [self = shared()](Result<Data, Error> outcome) {
                                      if (!outcome) return self->failed(std::move(outcome).error());
                                      if (self->succeeded()) self->hand(std::move(outcome));
                                  },
                              .metrics = ofAttempt(metrics_, attemptNumber()),
                              .progress = progress_});
    }
    void deliver(Error error) override { hand(Failure(std::move(error))); }
    void hand(Result<Data, Error> outcome) {
        Serviceable::Completion completion = std::move(completion_);
        completion(std::move(outcome));
    }

    const std::weak_ptr<RetryingService> owner_;
    const std::shared_ptr<RetryingService> kept_;
    const Form form_;
    Serviceable::Completion completion_;
    const MetricsReceiver metrics_;
    const ProgressReceiver progress_;
};

/// A run for one subscription. It keeps its service alive.
class SubscriptionRun final : public RetryRun {
public:
    SubscriptionRun(std::shared_ptr<const RetryingService> owner, MetricsReceiver metrics,
                    Subscriber<Data, Error> subscriber)
        : RetryRun(owner->policy()),
          owner_(std::move(owner)),
          metrics_(std::move(metrics)),
          subscriber_(std::move(subscriber)) {}

private:
    std::shared_ptr<Serviceable> service() const override { return owner_->service(); }
    Cancellable send(Serviceable& sender) override {
        const auto self = std::static_pointer_cast<SubscriptionRun>(shared_from_this());
        return sender.publisher(ofAttempt(metrics_, attemptNumber()))
            .sink([self](Data body) { self->subscriber_.receive(std::move(body)); },
                  [self](Result<void, Error> end) {
                      if (!end) return self->failed(std::move(end).error());
                      if (self->succeeded()) self->subscriber_.complete();
                  });
    }
    void deliver(Error error) override { subscriber_.complete(Failure(std::move(error))); }

    const std::shared_ptr<const RetryingService> owner_;
    const MetricsReceiver metrics_;
    const Subscriber<Data, Error> subscriber_;
};

Cancellable sendByFetch(Serviceable& service, Serviceable::FetchArguments arguments) {
    service.fetch(std::move(arguments));
    return {};
}

Cancellable sendByStart(Serviceable& service, Serviceable::FetchArguments arguments) {
    return service.start(std::move(arguments));
}

}  // namespace

RetryingService::RetryingService(std::shared_ptr<Serviceable> service, RetryPolicy policy)
    : service_(std::move(service)), policy_(std::move(policy)) {}

void RetryingService::fetch(FetchArguments arguments) {
    std::make_shared<CompletionRun>(shared_from_this(), nullptr, sendByFetch, std::move(arguments))->begin();
}

AnyPublisher<Data> RetryingService::publisher(MetricsReceiver metrics) {
    return AnyPublisher<Data>::create(
        [self = shared_from_this(), metrics](const Subscriber<Data, Error>& subscriber) {
            const auto run = std::make_shared<SubscriptionRun>(self, metrics, subscriber);
            run->begin();
            return Cancellable([run] { run->stop(); });
        });
}

Cancellable RetryingService::start(FetchArguments arguments) {
    const auto self = shared_from_this();
    const auto run = std::make_shared<CompletionRun>(self, self, sendByStart, std::move(arguments));
    run->begin();
    return Cancellable([run] { run->stop(); });
}

}  // namespace VanticRestKit::detail
