#include <VanticRestKit/platform/http/detail/Transfer.h>

#include <VanticRestKit/platform/http/detail/Records.h>

namespace VanticRestKit::detail {

void Transfer::report(Outcome& outcome) {
    const MetricsReceiver receiver = std::move(metrics_);
    if (outcome.metrics.empty()) {
        // No request was sent: the transfer failed before that, or the response came from a cache.
        RequestMetrics& only = outcome.metrics.emplace_back();
        describe(only, request_, outcome);
        if (isStarted()) only.total = sinceStart(startedAt_);
    }
    for (const RequestMetrics& each : outcome.metrics) receiver(each);
}

}  // namespace VanticRestKit::detail
