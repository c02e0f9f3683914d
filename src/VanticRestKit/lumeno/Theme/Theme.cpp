#include <VanticRestKit/lumeno/Theme/Theme.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<ContextualPhrases>() {
    using namespace mapping;
    using Phrases = ContextualPhrases;
    // clang-format off
    static const TypePlan& plan = object<Phrases>(
        optional<&Phrases::channel>("channel"),
        optional<&Phrases::genre>("genre"),
        optional<&Phrases::subGenre>("subGenre"),
        optional<&Phrases::theme>("theme"),
        optional<&Phrases::mood>("mood"),
        optional<&Phrases::audience>("audience"),
        optional<&Phrases::need>("need"),
        optional<&Phrases::other>("other"));
    // clang-format on
    return plan;
}

}  // namespace VanticRestKit
