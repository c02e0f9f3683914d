#include <VanticRestKit/platform/json/detail/KeyTable.h>

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <set>
#include <string>
#include <utility>

namespace VanticRestKit::mapping {

KeyTable::KeyTable(std::vector<std::string_view> keys) : keys_(std::move(keys)) {
    const std::size_t buckets = std::bit_ceil(std::max<std::size_t>(2, keys_.size() * 4));
    shift_ = 64 - static_cast<unsigned>(std::countr_zero(buckets));

    // The search for a seed would never end with two equal keys. Keys with equal signatures are hashed as a whole
    // instead.
    std::vector<std::string_view> sorted = keys_;
    std::sort(sorted.begin(), sorted.end());
    if (std::adjacent_find(sorted.begin(), sorted.end()) != sorted.end()) std::abort();
    std::vector<std::uint64_t> signatures;
    for (const std::string_view key : keys_) {
        std::string padded(key);
        padded.resize(padded.size() + 8);
        signatures.push_back(signature({padded.data(), key.size()}));
    }
    const std::set<std::uint64_t> distinct(signatures.begin(), signatures.end());
    hashesWholeKeys_ = distinct.size() != signatures.size();
    if (hashesWholeKeys_) std::transform(keys_.begin(), keys_.end(), signatures.begin(), wholeSignature);

    std::uint64_t state = 0x2545F4914F6CDD1DU;
    for (bool perfect = false; !perfect;) {
        state = state * 6364136223846793005U + 1442695040888963407U;
        seed_ = state | 1;
        buckets_.assign(buckets, none);
        perfect = true;
        for (std::size_t place = 0; place < keys_.size() && perfect; ++place) {
            std::uint8_t& slot = buckets_[bucket(signatures[place])];
            perfect = slot == none;
            slot = static_cast<std::uint8_t>(place);
        }
    }
}

}  // namespace VanticRestKit::mapping
