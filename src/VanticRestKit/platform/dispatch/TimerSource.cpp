#include <VanticRestKit/platform/dispatch/detail/Timer.h>
#include <VanticRestKit/platform/dispatch/TimerSource.h>

#include <utility>

namespace VanticRestKit {

// Here, so that the table of virtual functions is in the library alone.
TimerSource::~TimerSource() = default;

void TimerSource::use(std::shared_ptr<TimerSource> source) {
    detail::Timer::shared().setSource(std::move(source));
}

}  // namespace VanticRestKit
