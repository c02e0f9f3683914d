#include <VanticRestKit/trelvo/State/detail/StoredAnswers.h>

#include <VanticRestKit/Core/NetworkURLSession.h>
#include <VanticRestKit/platform/http/cache/URLCache.h>

#include <string>

namespace VanticRestKit::detail {

void removeStoredAnswers(const std::optional<Auth>& previous, const std::optional<Auth>& current) {
    if (!previous) return;
    const std::shared_ptr<URLCache>& cache = NetworkURLSession::sharedInstance().sessionURLConfig.urlCache;
    if (!cache) return;
    for (const std::string Auth::*token : {&Auth::accessToken, &Auth::refreshToken}) {
        const std::string& value = (*previous).*token;
        const bool isStillUsed = current && (*current).*token == value;
        if (!isStillUsed) cache->removeCachedResponses("Bearer " + value);
    }
}

}  // namespace VanticRestKit::detail
