// A host's records with the mistake selected by CASE.
#include <VanticRestKit/trelvo/History/HistoryData.h>
#include <VanticRestKit/trelvo/Saved/SavedData.h>

#include <cstdint>
#include <optional>
#include <string>

using namespace VanticRestKit;

namespace host {

struct Progress {
    std::optional<SourceSystem> source{};
    std::string namespace_{};
    std::string key{};
    std::int64_t progress{};
    bool done{};
    std::optional<Date> lastAccessed{};
};

struct Bookmark {
    std::optional<SourceSystem> source{};
    std::string oid{};
    std::string slug{};
    std::string namespace_{};
    std::string key{};
    std::int64_t order{};
    std::optional<Date> created{};
    std::optional<Date> updated{};
};

}  // namespace host

#if CASE != 1
template <>
const TypePlan& VanticRestKit::planOf<host::Progress>();
#endif
#if CASE != 2
template <>
const TypePlan& VanticRestKit::planOf<host::Bookmark>();
#endif

namespace {

template <HistoryEntityProtocol Record>
std::int64_t valueOf(const Record& record) {
    return record.progress;
}

template <SavedEntityProtocol Record>
std::int64_t valueOf(const Record& record) {
    return record.order;
}

}  // namespace

int main() { return static_cast<int>(valueOf(host::Progress{}) + valueOf(host::Bookmark{})); }
