#pragma once

// Records which candidates of nested choices have failed: when an outer candidate fails, everything inside it is read
// again for the next candidate.

#include <VanticRestKit/platform/json/detail/TypePlan.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <utility>
#include <vector>

namespace VanticRestKit::json {

/// Remembers failed candidates until the outermost candidate ends. Without it, each level of choices would multiply the
/// work by the number of its candidates: a document of a few hundred bytes could take hours.
class FailedCandidates {
public:
    /// A bit for each candidate of `choice` that has failed for the object at `at`.
    unsigned failedAt(const char* at, const mapping::ChoicePlan& choice) {
        if (failed_.empty()) return 0;
        const auto known = failed_.find({at, &choice});
        if (known == failed_.end()) return 0;
        // An object that contains a recorded object is worth recording too.
        tried_ += minTriesToRecord;
        return known->second;
    }

    /// How many candidates have begun and not ended.
    std::size_t depth() const noexcept { return triedBefore_.size(); }

    /// A candidate begins, nested in those that have not ended.
    void begin() { triedBefore_.push_back(tried_++); }

    /// The candidate that began last has ended. `candidate` is its index in `choice`.
    void end(const char* at, const mapping::ChoicePlan& choice, std::size_t candidate, bool hasFailed) {
        const std::uint64_t triedInside = tried_ - triedBefore_.back();
        triedBefore_.pop_back();
        if (triedBefore_.empty()) {
            failed_.clear();
        } else if (hasFailed && triedInside >= minTriesToRecord) {
            failed_[{at, &choice}] |= static_cast<std::uint8_t>(1U << candidate);
        }
    }

private:
    /// Objects that took fewer tries are tried again rather than recorded, since a record may take more memory than the
    /// object.
    static constexpr std::uint64_t minTriesToRecord = 8;

    std::map<std::pair<const char*, const mapping::ChoicePlan*>, std::uint8_t> failed_;
    std::vector<std::uint64_t> triedBefore_;  // of each candidate that has not ended
    std::uint64_t tried_ = 0;
};

}  // namespace VanticRestKit::json
