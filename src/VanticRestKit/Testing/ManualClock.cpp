#include <VanticRestKit/platform/dispatch/TimerSource.h>
#include <VanticRestKit/Testing/ManualClock.h>

#include <algorithm>
#include <map>
#include <mutex>
#include <utility>

namespace VanticRestKit::Testing {

class ManualClock::Source final : public TimerSource {
public:
    explicit Source(Date start) : now_(start) {}

    void after(Seconds delay, Block function) override {
        const std::lock_guard lock(mutex_);
        // Functions with the same time are called in the order in which they were added.
        functions_.emplace(now_ + std::max(delay, Seconds(0)), std::move(function));
    }

    Date now() const {
        const std::lock_guard lock(mutex_);
        return now_;
    }

    std::size_t pending() const {
        const std::lock_guard lock(mutex_);
        return functions_.size();
    }

    std::size_t advance(Seconds time) {
        const Date end = now() + time;
        std::size_t count = 0;
        while (Block function = next(end)) {
            function();
            ++count;
        }
        return count;
    }

    void clear() {
        std::multimap<Date, Block> dropped;
        const std::lock_guard lock(mutex_);
        dropped.swap(functions_);
    }

private:
    /// Returns the next function that is due by `end` and sets the clock to its time. If there is none, sets the clock
    /// to `end`.
    Block next(Date end) {
        const std::lock_guard lock(mutex_);
        if (functions_.empty() || functions_.begin()->first > end) {
            now_ = std::max(now_, end);
            return {};
        }
        auto node = functions_.extract(functions_.begin());
        now_ = std::max(now_, node.key());
        return std::move(node.mapped());
    }

    mutable std::mutex mutex_;
    Date now_;
    std::multimap<Date, Block> functions_;
};

ManualClock::ManualClock(Date start) : source_(std::make_shared<Source>(start)) { TimerSource::use(source_); }

ManualClock::~ManualClock() {
    TimerSource::use(nullptr);
    source_->clear();
}

Date ManualClock::now() const { return source_->now(); }

void ManualClock::after(Seconds delay, Block function) { source_->after(delay, std::move(function)); }

std::size_t ManualClock::pending() const { return source_->pending(); }

std::size_t ManualClock::advance(Seconds time) { return source_->advance(time); }

}  // namespace VanticRestKit::Testing
