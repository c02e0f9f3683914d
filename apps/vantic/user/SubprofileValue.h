#pragma once

#include <VanticRestKit/trelvo/Dataset/Subprofile.h>

#include <optional>
#include <string>

namespace vantic {

/// The properties of a profile, for printing. A `Subprofile` computes its properties and does not store them.
struct SubprofileValue {
    std::string uid{};
    std::optional<std::string> parentUid{};
    std::optional<VanticRestKit::Date> created{};
    std::optional<VanticRestKit::Date> updated{};
    std::optional<std::string> displayName{};
    std::optional<std::string> avatar{};
    std::optional<std::int64_t> avatarId{};
    std::optional<std::string> avatarAccessibilityText{};
    bool isChild{};
    std::optional<std::int64_t> birthYear{};
    std::optional<std::string> channelFilter{};

    static SubprofileValue of(const VanticRestKit::Subprofile& subprofile);
};

}  // namespace vantic

template <>
const VanticRestKit::TypePlan& VanticRestKit::planOf<vantic::SubprofileValue>();
