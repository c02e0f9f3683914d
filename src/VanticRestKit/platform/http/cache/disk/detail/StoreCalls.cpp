#include <VanticRestKit/platform/http/cache/disk/detail/StoreCalls.h>

#include <utility>

namespace VanticRestKit::detail {

namespace {

/// The maximum size of one transaction, unless a single record is larger. Limits how much the log grows.
constexpr std::size_t maxBytesAtOnce = 2U << 20U;

}  // namespace

std::size_t StoreCall::bytes() const noexcept {
    return sizeof(StoreCall) + record.key.size() + record.variant.size() + record.head.size() +
           record.body.size();
}

bool StoreCalls::push(StoreCall call) {
    const std::lock_guard lock(mutex_);
    waitingBytes_ += call.bytes();
    calls_.push_back(std::move(call));
    dropWrites();
    return !std::exchange(isTaking_, true);
}

void StoreCalls::dropWrites() {
    for (; waitingBytes_ + takenBytes_ > maxBytes_ && firstWrite_ < calls_.size(); ++firstWrite_) {
        StoreCall& call = calls_[firstWrite_];
        if (call.kind != StoreCall::Kind::write && call.kind != StoreCall::Kind::writeHead) continue;
        waitingBytes_ -= call.bytes();
        call.kind = StoreCall::Kind::removeRecord;
        call.record.head = Data();
        call.record.body = Data();
        waitingBytes_ += call.bytes();
        ++dropped_;
    }
}

std::vector<StoreCall> StoreCalls::take() {
    std::vector<StoreCall> taken;
    const std::lock_guard lock(mutex_);
    takenBytes_ = 0;
    while (!calls_.empty() && (taken.empty() || takenBytes_ + calls_.front().bytes() <= maxBytesAtOnce)) {
        takenBytes_ += calls_.front().bytes();
        taken.push_back(std::move(calls_.front()));
        calls_.pop_front();
        if (firstWrite_ > 0) --firstWrite_;
    }
    waitingBytes_ -= takenBytes_;
    isTaking_ = !taken.empty();
    return taken;
}

std::uint64_t StoreCalls::dropped() const {
    const std::lock_guard lock(mutex_);
    return dropped_;
}

}  // namespace VanticRestKit::detail
