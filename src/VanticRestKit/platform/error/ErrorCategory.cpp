#include <VanticRestKit/platform/error/ErrorCategory.h>

namespace VanticRestKit {

const char* nameOf(ErrorCategory category) noexcept {
    switch (category) {
        case ErrorCategory::offline: return "offline";
        case ErrorCategory::timedOut: return "timedOut";
        case ErrorCategory::cancelled: return "cancelled";
        case ErrorCategory::insecure: return "insecure";
        case ErrorCategory::unauthorized: return "unauthorized";
        case ErrorCategory::forbidden: return "forbidden";
        case ErrorCategory::notFound: return "notFound";
        case ErrorCategory::tooManyRequests: return "tooManyRequests";
        case ErrorCategory::serverFailed: return "serverFailed";
        case ErrorCategory::badAnswer: return "badAnswer";
        case ErrorCategory::wrongUse: return "wrongUse";
        case ErrorCategory::unknown: break;
    }
    return "unknown";
}

}  // namespace VanticRestKit
