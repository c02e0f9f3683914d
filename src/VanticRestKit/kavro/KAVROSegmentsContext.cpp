#include <VanticRestKit/kavro/KAVROSegmentsContext.h>

namespace VanticRestKit {

KAVROSegmentsContext::~KAVROSegmentsContext() = default;

std::map<std::string, std::string> KAVROSegmentsContext::HTTPHeaderFields() const {
    return {{"content-type", "application/json"},
            {"x-api-key", apiKey()},
            {"Authorization", "Bearer " + accessToken()}};
}

}  // namespace VanticRestKit
