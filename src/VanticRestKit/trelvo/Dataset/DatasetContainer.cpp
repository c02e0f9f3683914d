#include <VanticRestKit/trelvo/Dataset/DatasetContainer.h>

#include <VanticRestKit/platform/date/DateFormatter.h>
#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

namespace {

bool isoDate(std::string_view text, Date& value) {
    const std::optional<Date> date = ISO8601DateFormatter().date(text);
    if (date) value = *date;
    return date.has_value();
}

}  // namespace

template <>
const TypePlan& planOf<DatasetContainer>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<DatasetContainer>(
        required<&DatasetContainer::uid>("uid"),
        lenient<&DatasetContainer::parentUid>("parent_uid"),
        lenient<&DatasetContainer::oid>("oid"),
        lenient<&DatasetContainer::source>("source"),
        lenient<&DatasetContainer::namespace_>("namespace"),
        required<&DatasetContainer::dataset>("dataset"),
        lenient<&DatasetContainer::created, isoDate>("created"),
        lenient<&DatasetContainer::updated, isoDate>("updated"));
    // clang-format on
    return plan;
}

}  // namespace VanticRestKit
