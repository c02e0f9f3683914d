#include <VanticRestKit/platform/http/cache/detail/MemoryStore.h>

#include <VanticRestKit/platform/http/cache/detail/Vary.h>

#include <algorithm>
#include <utility>

namespace VanticRestKit::detail {

namespace {

// Lookups stay fast even if the responses of a server vary by a field that differs in each request.
constexpr std::size_t maxVariants = 32;

}  // namespace

MemoryStore::Variants* MemoryStore::variantsOf(const CacheKey& key) {
    return const_cast<Variants*>(std::as_const(*this).variantsOf(key));
}

const MemoryStore::Variants* MemoryStore::variantsOf(const CacheKey& key) const {
    const auto partition = partitions_.find(key.partition.text());
    if (partition == partitions_.end()) return nullptr;
    const auto url = partition->second.find(key.url);
    return url == partition->second.end() ? nullptr : &url->second;
}

StoredPointer MemoryStore::find(const CacheKey& key, const URLRequest& request) {
    const Variants* const variants = variantsOf(key);
    if (variants == nullptr) return nullptr;
    Entries::iterator best = entries_.end();
    for (const Entries::iterator entry : *variants) {
        if (!fitsVariant(entry->response->variant(), request)) continue;
        const bool isLater = best == entries_.end() ||
                             entry->response->parts().received.wall > best->response->parts().received.wall;
        if (isLater) best = entry;
    }
    if (best == entries_.end()) return nullptr;
    entries_.splice(entries_.begin(), entries_, best);
    return best->response;
}

std::vector<StoredPointer> MemoryStore::all(const CacheKey& key) const {
    std::vector<StoredPointer> found;
    if (const Variants* const variants = variantsOf(key)) {
        for (const Entries::iterator entry : *variants) found.push_back(entry->response);
    }
    return found;
}

bool MemoryStore::put(const CacheKey& key, StoredPointer response, const URLRequest* request,
                      Removed& removed) {
    if (const Variants* const variants = variantsOf(key)) {
        const Variants present = *variants;
        for (const Entries::iterator entry : present) {
            const std::string& variant = entry->response->variant();
            const bool isReplaced =
                variant == response->variant() || (request != nullptr && fitsVariant(variant, *request));
            if (isReplaced) remove(entry, removed);
        }
    }
    // The overhead of the containers for one entry: a node of the list, a node of the table with its bucket, and an
    // element of the variants.
    constexpr std::size_t nodes =
        sizeof(Entry) + 4 * sizeof(void*) + sizeof(Urls::value_type) + 4 * sizeof(void*) + 4 * sizeof(void*);
    std::size_t cost = response->cost() + key.url.size() + 1 + nodes;
    if (!partitions_.contains(key.partition.text())) {
        cost += sizeof(Partitions::value_type) + key.partition.text().size() + 16 * sizeof(void*);
    }
    if (cost > capacity_ / 2) {
        removed.push_back(std::move(response));
        return false;
    }
    auto& partition = *partitions_.try_emplace(key.partition.text()).first;
    auto& url = *partition.second.try_emplace(key.url).first;
    if (url.second.size() >= maxVariants) {
        // Others remain, so this does not erase the URL.
        remove(url.second.front(), removed);
    }
    entries_.push_front(
        {.response = std::move(response), .cost = cost, .partition = &partition, .url = &url});
    url.second.push_back(entries_.begin());
    usage_ += cost;
    shrink(removed);
    return true;
}

bool MemoryStore::replace(const CacheKey& key, const StoredPointer& stored, StoredPointer replacement,
                          Removed& removed) {
    const Variants* const variants = variantsOf(key);
    if (variants == nullptr) return false;
    const auto found = std::find_if(variants->begin(), variants->end(),
                                    [&stored](const auto& entry) { return entry->response == stored; });
    if (found == variants->end()) return false;
    Entry& entry = **found;
    const std::size_t cost = entry.cost - entry.response->cost() + replacement->cost();
    usage_ = usage_ - entry.cost + cost;
    entry.cost = cost;
    removed.push_back(std::exchange(entry.response, std::move(replacement)));
    entries_.splice(entries_.begin(), entries_, *found);
    shrink(removed);
    return true;
}

void MemoryStore::remove(const CacheKey& key, Removed& removed) {
    const Variants* const variants = variantsOf(key);
    if (variants == nullptr) return;
    const Variants present = *variants;
    for (const Entries::iterator entry : present) remove(entry, removed);
}

void MemoryStore::remove(const CacheKey& key, const StoredPointer& stored, Removed& removed) {
    const Variants* const variants = variantsOf(key);
    if (variants == nullptr) return;
    const auto found = std::find_if(variants->begin(), variants->end(),
                                    [&stored](const auto& entry) { return entry->response == stored; });
    if (found != variants->end()) remove(*found, removed);
}

void MemoryStore::remove(Entries::iterator entry, Removed& removed) {
    usage_ -= entry->cost;
    removed.push_back(std::move(entry->response));
    Partitions::value_type& partition = *entry->partition;
    Urls::value_type& url = *entry->url;
    std::erase(url.second, entry);
    if (url.second.empty()) partition.second.erase(partition.second.find(url.first));
    if (partition.second.empty()) partitions_.erase(partitions_.find(partition.first));
    entries_.erase(entry);
}

void MemoryStore::removeAll(std::string_view prefix, Removed& removed) {
    std::vector<Entries::iterator> found;
    for (auto& [name, urls] : partitions_) {
        if (!std::string_view(name).starts_with(prefix)) continue;
        for (auto& [url, variants] : urls) found.insert(found.end(), variants.begin(), variants.end());
    }
    for (const Entries::iterator entry : found) remove(entry, removed);
}

void MemoryStore::setCapacity(std::size_t capacity, Removed& removed) {
    capacity_ = capacity;
    shrink(removed);
}

void MemoryStore::shrink(Removed& removed) {
    while (usage_ > capacity_) remove(std::prev(entries_.end()), removed);
}

}  // namespace VanticRestKit::detail
