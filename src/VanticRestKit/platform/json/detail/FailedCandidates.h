#pragma once

// Which candidates of choices have failed, for choices inside the candidates of choices: if an outer candidate fails,
// all that it holds is read again for the next one.

#include <VanticRestKit/platform/json/detail/TypePlan.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <utility>
#include <vector>

namespace VanticRestKit::json {

/// Remembers what has failed until the outermost candidate ends. Without it, each level of choices would multiply the
/// work by the number of its candidates: a document of a few hundred bytes could take hours.
class FailedCandidates {
public:
    /// A bit for each candidate of `choice` that has failed for the object at `at`.
    unsigned failedAt(const char* at, const mapping::ChoicePlan& choice) {
        if (failed_.empty()) return 0;
        const auto known = failed_.find({at, &choice});
        if (known == failed_.end()) return 0;
        // What holds an object that is worth a note is worth one itself.
        tried_ += worthNoting;
        return known->second;
    }

    /// How many candidates have begun and not ended.
    std::size_t depth() const noexcept { return triedBefore_.size(); }

    /// A candidate begins, inside those that have not ended.
    void begin() { triedBefore_.push_back(tried_++); }

    /// The candidate that began last has ended. `candidate` is its place in `choice`.
    void end(const char* at, const mapping::ChoicePlan& choice, std::size_t candidate, bool hasFailed) {
        const std::uint64_t triedInside = tried_ - triedBefore_.back();
        triedBefore_.pop_back();
        if (triedBefore_.empty()) {
            failed_.clear();
        } else if (hasFailed && triedInside >= worthNoting) {
            failed_[{at, &choice}] |= static_cast<std::uint8_t>(1U << candidate);
        }
    }

private:
    /// Fewer tries than that are repeated. A note takes more memory than the object that it is about may.
    static constexpr std::uint64_t worthNoting = 8;

    std::map<std::pair<const char*, const mapping::ChoicePlan*>, std::uint8_t> failed_;
    std::vector<std::uint64_t> triedBefore_;  // of each candidate that has not ended
    std::uint64_t tried_ = 0;
};

}  // namespace VanticRestKit::json
