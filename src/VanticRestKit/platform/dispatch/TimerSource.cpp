#include <VanticRestKit/platform/dispatch/detail/Timer.h>
#include <VanticRestKit/platform/dispatch/TimerSource.h>

#include <utility>

namespace VanticRestKit {

// Defined here so that the vtable is emitted only in the library.
TimerSource::~TimerSource() = default;

void TimerSource::use(std::shared_ptr<TimerSource> source) {
    detail::Timer::shared().setSource(std::move(source));
}

}  // namespace VanticRestKit
