#include <VanticRestKit/trelvo/History/HistoryData.h>

#include <VanticRestKit/platform/json/Table.h>
#include <VanticRestKit/trelvo/Common/detail/ApiDate.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<HistoryData>() {
    using detail::apiDate;
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<HistoryData>(
        lenient<&HistoryData::source>("source"),
        required<&HistoryData::uid>("uid"),
        required<&HistoryData::oid>("oid"),
        required<&HistoryData::slug>("slug"),
        required<&HistoryData::namespace_>("namespace"),
        required<&HistoryData::key>("key"),
        required<&HistoryData::progress>("progress"),
        required<&HistoryData::done>("done"),
        lenient<&HistoryData::lastAccessed, apiDate>("lastAccessed"));
    // clang-format on
    return plan;
}

static_assert(HistoryEntityProtocol<HistoryData>);

}  // namespace VanticRestKit
