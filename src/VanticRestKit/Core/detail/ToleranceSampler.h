#pragma once

/// \file
/// `ToleranceSampler`: explains some of the documents that an observer's loads decode.

#include <VanticRestKit/Core/RequestObserver.h>
#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/dispatch/DispatchQueue.h>
#include <VanticRestKit/platform/json/Diagnosis.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <utility>

namespace VanticRestKit::detail {

/// Selects documents and explains them on its own queue, so that loads do not wait for it.
class ToleranceSampler : public std::enable_shared_from_this<ToleranceSampler> {
public:
    using Explain = Diagnosis (*)(const Data&);

    explicit ToleranceSampler(const ObserverOptions& options);

    /// Whether to explain the next document. Any thread.
    bool choosesNext() const;

    /// Explains `body` to `observer`, unless the limit of this minute is reached. Any thread.
    void explain(std::shared_ptr<RequestObserver> observer, ExplainedDocument document, Data body,
                 Explain listFaults);

    /// For tests: runs `block` once all documents passed so far have been explained or skipped.
    void afterAll(Block block) const { queue_.async(std::move(block)); }

private:
    bool takes(std::uint64_t size);

    const double share_;
    const std::uint64_t bytesPerMinute_;
    const SharedFunction<double()> random_;
    const SharedFunction<std::chrono::steady_clock::time_point()> now_;
    const DispatchQueue queue_{"VanticRestKit explanations"};
    // On the queue:
    std::optional<std::chrono::steady_clock::time_point> minuteBegan_;
    std::uint64_t bytesLeft_ = 0;
};

}  // namespace VanticRestKit::detail
