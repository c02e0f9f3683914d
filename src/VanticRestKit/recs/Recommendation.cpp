#include <VanticRestKit/recs/Recommendation.h>

#include <VanticRestKit/platform/json/Table.h>
#include <VanticRestKit/platform/url/URLComponents.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<Recommendation>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Recommendation>(
        required<&Recommendation::rid>("rid"),
        required<&Recommendation::recipeid>("recipeid"));
    // clang-format on
    return plan;
}

std::optional<RecsContentSource> Recommendation::contentSource() const {
    const std::optional<URLComponents> parts = URLComponents::make(rid);
    if (!parts || !parts->scheme()) return std::nullopt;
    return fromRawValue<RecsContentSource>(*parts->scheme());
}

std::optional<RecsContentType> Recommendation::contentType() const {
    const std::optional<URLComponents> parts = URLComponents::make(rid);
    if (!parts || !parts->host()) return std::nullopt;
    return fromRawValue<RecsContentType>(*parts->host());
}

std::optional<std::string> Recommendation::contentId() const {
    const std::optional<URLComponents> parts = URLComponents::make(rid);
    if (!parts) return std::nullopt;
    const std::string path = parts->path();
    const std::size_t begin = path.find_first_not_of('/');
    if (begin == std::string::npos) return std::nullopt;
    return path.substr(begin, path.find('/', begin) - begin);
}

}  // namespace VanticRestKit
