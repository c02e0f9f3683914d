#include <VanticRestKit/platform/http/detail/RecordOf.h>

#include <VanticRestKit/platform/http/HTTPURLResponse.h>

namespace VanticRestKit::detail {

RequestMetrics recordOf(const URLRequest& request, const Outcome& outcome) {
    RequestMetrics record{.method = request.httpMethod().value_or("GET"), .error = outcome.error};
    if (request.url()) record.url = request.url()->absoluteString();
    const HTTPURLResponse* const head = outcome.response ? outcome.response->asHTTP() : nullptr;
    if (head != nullptr) record.status = head->statusCode();
    if (outcome.data) record.bodyBytesDecoded = static_cast<std::int64_t>(outcome.data->size());
    return record;
}

RequestMetrics::Duration sinceStart(std::chrono::steady_clock::time_point start) {
    return std::chrono::duration_cast<RequestMetrics::Duration>(std::chrono::steady_clock::now() - start);
}

}  // namespace VanticRestKit::detail
