#include <VanticRestKit/trelvo/Saved/SavedData.h>

#include <VanticRestKit/platform/json/Table.h>
#include <VanticRestKit/trelvo/Common/detail/ApiDate.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<SavedData>() {
    using detail::apiDate;
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<SavedData>(
        lenient<&SavedData::source>("source"),
        required<&SavedData::oid>("oid"),
        required<&SavedData::slug>("slug"),
        required<&SavedData::namespace_>("namespace"),
        required<&SavedData::key>("key"),
        required<&SavedData::order>("order"),
        lenient<&SavedData::created, apiDate>("created"),
        lenient<&SavedData::updated, apiDate>("updated"));
    // clang-format on
    return plan;
}

static_assert(SavedEntityProtocol<SavedData>);

}  // namespace VanticRestKit
