#include <VanticRestKit/platform/http/detail/LimitFaults.h>

#include <algorithm>
#include <utility>

namespace VanticRestKit::detail {

namespace {

// libcurl's own limits for one header line, and for all header lines of a response.
constexpr std::uint64_t libcurlLineBytes = 100 * 1024;
constexpr std::uint64_t libcurlHeadBytes = 300 * 1024;

}  // namespace

std::string sizeText(std::uint64_t bytes) {
    constexpr std::uint64_t kilobyte = 1024;
    constexpr std::uint64_t megabyte = 1024 * kilobyte;
    if (bytes == 0 || bytes % kilobyte != 0) return std::to_string(bytes) + " bytes";
    if (bytes % megabyte != 0) return std::to_string(bytes / kilobyte) + " KB";
    return std::to_string(bytes / megabyte) + " MB";
}

TransportFault limitFault(std::string what, std::string_view name) {
    what.append(" (").append(name).append(").");
    return {URLErrorCode::dataLengthExceedsMaximum, std::move(what)};
}

TransportFault longHeaderLineFault(const URLSessionLimits& limits) {
    const std::uint64_t size = std::min(limits.maxHeaderLineBytes, libcurlLineBytes);
    return limitFault("A header line of the answer is longer than " + sizeText(size), "maxHeaderLineBytes");
}

TransportFault largeHeadFault(const URLSessionLimits& limits) {
    const std::uint64_t size = std::min(limits.maxHeadBytes, libcurlHeadBytes);
    return limitFault("The headers of the answer are larger than " + sizeText(size), "maxHeadBytes");
}

}  // namespace VanticRestKit::detail
