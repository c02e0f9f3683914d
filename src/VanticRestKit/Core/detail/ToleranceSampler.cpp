#include <VanticRestKit/Core/detail/ToleranceSampler.h>

#include <atomic>
#include <utility>

namespace VanticRestKit::detail {

namespace {

using Clock = std::chrono::steady_clock;

/// In [0, 1). The splitmix64 sequence, which any number of threads may use without a lock.
double randomNumber() {
    constexpr std::uint64_t step = 0x9E3779B97F4A7C15;
    static std::atomic<std::uint64_t> state{
        static_cast<std::uint64_t>(Clock::now().time_since_epoch().count())};
    std::uint64_t bits = state.fetch_add(step) + step;
    bits = (bits ^ (bits >> 30)) * 0xBF58476D1CE4E5B9;
    bits = (bits ^ (bits >> 27)) * 0x94D049BB133111EB;
    bits ^= bits >> 31;
    return static_cast<double>(bits >> 11) * 0x1.0p-53;
}

}  // namespace

ToleranceSampler::ToleranceSampler(const ObserverOptions& options)
    : share_(options.explainedShare),
      bytesPerMinute_(options.explainedBytesPerMinute),
      random_(options.random),
      now_(options.now) {}

bool ToleranceSampler::choosesNext() const { return (random_ ? random_() : randomNumber()) < share_; }

void ToleranceSampler::explain(std::shared_ptr<RequestObserver> observer, ExplainedDocument document,
                               Data body, Explain listFaults) {
    queue_.async([self = shared_from_this(), observer = std::move(observer), document = std::move(document),
                  body = std::move(body), listFaults]() mutable {
        if (!self->takes(body.size())) return;
        document.faults = listFaults(body).faults;
        observer->documentExplained(document);
    });
}

bool ToleranceSampler::takes(std::uint64_t size) {
    const Clock::time_point now = now_ ? now_() : Clock::now();
    if (!minuteBegan_ || now - *minuteBegan_ >= std::chrono::minutes(1)) {
        minuteBegan_ = now;
        bytesLeft_ = bytesPerMinute_;
    }
    if (size > bytesLeft_) return false;
    bytesLeft_ -= size;
    return true;
}

}  // namespace VanticRestKit::detail
