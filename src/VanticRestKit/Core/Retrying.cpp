#include <VanticRestKit/Core/Retrying.h>

#include <VanticRestKit/Core/detail/RetryingService.h>
#include <VanticRestKit/platform/dispatch/DispatchQueue.h>
#include <VanticRestKit/platform/dispatch/DispatchWorkItem.h>

#include <atomic>
#include <cstdint>
#include <string_view>
#include <utility>

namespace VanticRestKit {

namespace {

bool isRepeatable(const URLRequest& request, const RetryPolicy& policy) {
    const std::string method = request.httpMethod().value_or("GET");
    if (method == "GET" || method == "HEAD") return true;
    return policy.repeatsPutAndDelete && (method == "PUT" || method == "DELETE");
}

/// Randomises pauses; need not be unpredictable.
double randomShare() {
    static std::atomic<std::uint64_t> counter{
        static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count())};
    std::uint64_t bits = counter.fetch_add(0x9E3779B97F4A7C15U, std::memory_order_relaxed);
    bits = (bits ^ (bits >> 30U)) * 0xBF58476D1CE4E5B9U;
    bits = (bits ^ (bits >> 27U)) * 0x94D049BB133111EBU;
    bits ^= bits >> 31U;
    return static_cast<double>(bits >> 11U) * 0x1p-53;
}

/// Runs `block` on a separate queue: a host's own service may block while it starts a request.
Cancellable runAfter(std::chrono::duration<double> pause, Block block) {
    const auto item = std::make_shared<DispatchWorkItem>(std::move(block));
    // In this form NaN means no pause.
    DispatchQueue("VanticRestKit retry").asyncAfter(pause.count() > 0 ? pause : pause.zero(), item);
    return Cancellable([item] { item->cancel(); });
}

}  // namespace

std::shared_ptr<Serviceable> retrying(RetryingArguments arguments) {
    RetryPolicy policy = std::move(arguments.policy);
    std::shared_ptr<Serviceable> service = std::move(arguments.service);
    if (policy.attempts < 2 || !isRepeatable(arguments.request, policy)) return service;
    RetryEnvironment& environment = policy.environment;
    if (!environment.now) environment.now = [] { return Date(std::chrono::system_clock::now()); };
    if (!environment.random) environment.random = randomShare;
    if (!environment.after) environment.after = runAfter;
    return std::make_shared<detail::RetryingService>(std::move(service), std::move(policy));
}

}  // namespace VanticRestKit
