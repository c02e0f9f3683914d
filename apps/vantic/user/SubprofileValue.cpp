#include "user/SubprofileValue.h"

#include <VanticRestKit/platform/date/DateFormatter.h>
#include <VanticRestKit/platform/json/Table.h>

#include <optional>
#include <string_view>

namespace {

/// Reads dates in the format of the service.
bool apiDate(std::string_view text, VanticRestKit::Date& value) {
    const std::optional<VanticRestKit::Date> date =
        VanticRestKit::apiDateFormatter().formattedDateWithoutMilliseconds(text);
    if (date) value = *date;
    return date.has_value();
}

}  // namespace

template <>
const VanticRestKit::TypePlan& VanticRestKit::planOf<vantic::SubprofileValue>() {
    using namespace mapping;
    using vantic::SubprofileValue;
    // clang-format off
    static const TypePlan& plan = object<SubprofileValue>(
        required<&SubprofileValue::uid>("uid"), lenient<&SubprofileValue::parentUid>("parentUid"),
        lenient<&SubprofileValue::created, apiDate>("created"),
        lenient<&SubprofileValue::updated, apiDate>("updated"),
        lenient<&SubprofileValue::displayName>("displayName"), lenient<&SubprofileValue::avatar>("avatar"),
        lenient<&SubprofileValue::avatarId>("avatarId"),
        lenient<&SubprofileValue::avatarAccessibilityText>("avatarAccessibilityText"),
        lenient<&SubprofileValue::isChild>("isChild"), lenient<&SubprofileValue::birthYear>("birthYear"),
        lenient<&SubprofileValue::channelFilter>("channelFilter"));
    // clang-format on
    return plan;
}

namespace vantic {

SubprofileValue SubprofileValue::of(const VanticRestKit::Subprofile& subprofile) {
    return {.uid = subprofile.uid(),
            .parentUid = subprofile.parentUid(),
            .created = subprofile.created(),
            .updated = subprofile.updated(),
            .displayName = subprofile.displayName(),
            .avatar = subprofile.avatar(),
            .avatarId = subprofile.avatarId(),
            .avatarAccessibilityText = subprofile.avatarAccessibilityText(),
            .isChild = subprofile.isChild(),
            .birthYear = subprofile.birthYear(),
            .channelFilter = subprofile.channelFilter()};
}

}  // namespace vantic
