#include <VanticRestKit/platform/http/detail/Records.h>

#include <VanticRestKit/platform/http/HTTPURLResponse.h>

namespace VanticRestKit::detail {

void describe(RequestMetrics& record, const URLRequest& request, const Outcome& outcome) {
    record.method = request.httpMethod().value_or("GET");
    if (request.url()) record.url = request.url()->absoluteString();
    record.error = outcome.error;
    const HTTPURLResponse* const head = outcome.response ? outcome.response->asHTTP() : nullptr;
    if (head != nullptr) {
        record.status = head->statusCode();
        record.source = head->source();
    }
    if (outcome.data) record.bodyBytesDecoded = static_cast<std::int64_t>(outcome.data->size());
}

RequestMetrics::Duration sinceStart(std::chrono::steady_clock::time_point start) {
    return std::chrono::duration_cast<RequestMetrics::Duration>(std::chrono::steady_clock::now() - start);
}

}  // namespace VanticRestKit::detail
