#include <VanticRestKit/trelvo/Token/TokenResponse.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<TokenResponse>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<TokenResponse>(
        lenient<&TokenResponse::meta>("meta"),
        lenient<&TokenResponse::auth>("auth"));
    // clang-format on
    return plan;
}

}  // namespace VanticRestKit
