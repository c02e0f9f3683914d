#include <VanticRestKit/Core/RetryBudget.h>

#include <algorithm>

namespace VanticRestKit {

namespace {

// In this form NaN gives zero.
double notBelowZero(double number) noexcept { return number > 0 ? number : 0; }

// Ten additions of 0.1 give slightly less than one.
constexpr double almostOne = 1 - 1e-9;

}  // namespace

RetryBudget::RetryBudget(double share, double reserve) noexcept
    : share_(notBelowZero(share)), reserve_(notBelowZero(reserve)), balance_(reserve_) {}

void RetryBudget::deposit() noexcept {
    const std::lock_guard lock(mutex_);
    balance_ = std::min(balance_ + share_, std::max(reserve_, 1.0));
}

bool RetryBudget::withdraw() noexcept {
    const std::lock_guard lock(mutex_);
    if (balance_ < almostOne) return false;
    balance_ = notBelowZero(balance_ - 1);
    return true;
}

double RetryBudget::balance() const noexcept {
    const std::lock_guard lock(mutex_);
    return balance_;
}

}  // namespace VanticRestKit
