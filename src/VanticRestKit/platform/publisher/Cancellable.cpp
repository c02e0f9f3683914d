#include <VanticRestKit/platform/publisher/Cancellable.h>

#include <atomic>

namespace VanticRestKit {

namespace detail {

CancelTarget::~CancelTarget() = default;

namespace {

/// A function that is called by the first `cancel()`.
class FunctionTarget final : public CancelTarget {
public:
    explicit FunctionTarget(Block function) noexcept : function_(std::move(function)) {}

    void cancel() override {
        if (isCancelled_.exchange(true, std::memory_order_acq_rel)) return;
        Block function = std::move(function_);
        function();
    }

private:
    std::atomic<bool> isCancelled_{false};
    Block function_;
};

}  // namespace

}  // namespace detail

Cancellable::Cancellable(Block onCancel) {
    if (onCancel) target_ = std::make_shared<detail::FunctionTarget>(std::move(onCancel));
}

Cancellable& Cancellable::operator=(Cancellable&& other) noexcept {
    // The old target is cancelled last, once this holds the new one: cancelling may use this object.
    Cancellable incoming(std::move(other));
    Cancellable outgoing(std::move(*this));
    target_ = std::move(incoming.target_);
    return *this;
}

Cancellable::~Cancellable() {
    // Dropping may use this object.
    if (const auto target = std::exchange(target_, nullptr)) target->drop();
}

void Cancellable::cancel() const {
    // Cancelling may destroy this very object.
    if (const auto target = target_) target->cancel();
}

}  // namespace VanticRestKit
