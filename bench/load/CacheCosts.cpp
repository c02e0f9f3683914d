#include "CacheCosts.h"

#include "../support/Measure.h"
#include "Loads.h"

#include <VanticRestKit/platform/http/cache/detail/MemoryStore.h>
#include <VanticRestKit/platform/http/cache/URLCache.h>

#include <algorithm>
#include <string>
#include <vector>

namespace VanticRestKit::bench {

namespace {

using detail::CacheKey;
using detail::MemoryStore;
using detail::StoredPointer;
using detail::StoredResponse;

Loads& loadsOf(const std::string& address, std::shared_ptr<URLCache> cache) {
    URLSessionConfiguration configuration;
    configuration.urlCache = std::move(cache);
    return *new Loads(URLSession::make(configuration), address);
}

void row(const std::string& name, const Times& own, const Times& base, const char* budget, const char* goal) {
    report(name + ", processor time to a load without a cache", figure(own.ratio(), 3), budget, goal,
           "of the least times " + figure(own.least() / base.least(), 3));
}

StoredPointer smallAnswer() {
    detail::ResponseParts parts;
    parts.status = 200;
    parts.fields = {{"Cache-Control", "max-age=60"}, {"Content-Type", "application/json"}};
    parts.body = Data("{}");
    return std::make_shared<const StoredResponse>(std::move(parts));
}

/// A store with a given number of responses, and their keys.
class Filled {
public:
    explicit Filled(std::size_t count) : answer_(smallAnswer()), store_(count * 10'000) {
        for (std::size_t i = 0; i < count; ++i)
            keys_.push_back({.url = "http://host.test/videos/" + std::to_string(i)});
        for (const CacheKey& key : keys_) put(key);
        // From now on, each added response evicts another one.
        store_.setCapacity(store_.usage(), removed_);
    }

    void find(std::size_t times) {
        for (std::size_t i = 0; i < times; ++i) keep(store_.find(next(), request_));
    }

    void replaceOldest(std::size_t times) {
        for (std::size_t i = 0; i < times; ++i)
            put({.url = "http://host.test/added/" + std::to_string(++added_)});
    }

private:
    void put(const CacheKey& key) {
        store_.put(key, answer_, nullptr, removed_);
        removed_.clear();
    }

    // Far from the previous one, like the keys of real requests.
    const CacheKey& next() { return keys_[(at_ = (at_ + 7919) % keys_.size())]; }

    StoredPointer answer_;
    MemoryStore store_;
    MemoryStore::Removed removed_;
    std::vector<CacheKey> keys_;
    URLRequest request_{URL::make("http://host.test/").value()};
    std::size_t at_ = 0;
    std::size_t added_ = 0;
};

}  // namespace

void cacheCosts(const std::string& origin, std::size_t count, std::size_t rounds) {
    const auto withCache = [&](const char* path) -> Loads& {
        return loadsOf(origin + path, URLCache::make());
    };
    Loads& plain = loadsOf(origin + "/sample", nullptr);
    Loads& useless = withCache("/sample");
    Loads& fresh = withCache("/fresh");
    Loads& checkedPlain = loadsOf(origin + "/checked", nullptr);
    Loads& checked = withCache("/checked");
    const auto once = [count](Loads& loads) { return [&loads, count] { loads.run(count, 1); }; };
    for (Loads* each : {&plain, &useless, &fresh, &checkedPlain, &checked}) each->run(count, 1);
    const auto plainTimes =
        interleaved(rounds, {{"plain", once(plain)}, {"useless", once(useless)}, {"fresh", once(fresh)}});
    row("load that the cache can do nothing for", plainTimes[1], plainTimes[0], "1.01", "");
    row("load answered from memory", plainTimes[2], plainTimes[0], "0.5", "0.25");
    const auto checkedTimes =
        interleaved(rounds, {{"plain", once(checkedPlain)}, {"revalidated", once(checked)}});
    row("load that the server confirms", checkedTimes[1], checkedTimes[0], "1.05", "");
}

void lookUps(std::size_t many, std::size_t rounds) {
    constexpr std::size_t few = 1000;
    constexpr std::size_t times = 20'000;
    Filled small(few);
    Filled large(many);
    const std::string base = " with " + std::to_string(many) + " answers, processor time to one with 1000";
    const auto found =
        interleaved(rounds, {{"small", [&] { small.find(times); }}, {"large", [&] { large.find(times); }}});
    const auto perCall = [](const Times& of) { return figure(of.least() / times * 1e9, 0) + " ns"; };
    report("look-up in a cache" + base, figure(found[1].ratio()), "20", "",
           perCall(found[1]) + "; a search of all of them would be 100");
    const auto added = interleaved(rounds, {{"small", [&] { small.replaceOldest(times); }},
                                            {"large", [&] { large.replaceOldest(times); }}});
    report("adding to a full cache" + base, figure(added[1].ratio()), "20", "", perCall(added[1]));
}

}  // namespace VanticRestKit::bench
