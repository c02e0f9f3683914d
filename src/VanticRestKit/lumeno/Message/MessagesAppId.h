#pragma once

/// \file
/// `MessagesAppId`: which application asks for messages.

#include <VanticRestKit/platform/json/RawText.h>

namespace VanticRestKit {

/// Which application asks for messages.
enum class MessagesAppId { lumeno, kidslumeno, lumenoInternational, vanticme };

template <>
struct RawTexts<MessagesAppId> {
    static constexpr RawCase<MessagesAppId> cases[] = {
        {MessagesAppId::lumeno, "lumeno", "lumeno"},
        {MessagesAppId::kidslumeno, "kidslumeno", "kids"},
        {MessagesAppId::lumenoInternational, "lumenoInternational", "lumeno int"},
        {MessagesAppId::vanticme, "vanticme", "me"},
    };
};

}  // namespace VanticRestKit
