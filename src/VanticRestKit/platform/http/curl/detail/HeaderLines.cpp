#include <VanticRestKit/platform/http/curl/detail/HeaderLines.h>
#include <VanticRestKit/platform/http/detail/ContentDecoder.h>
#include <VanticRestKit/platform/http/detail/HeaderName.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace VanticRestKit::detail {

namespace {

// Headers that frame the message or control the connection; requests cannot set them.
constexpr std::array<std::string_view, 9> sessionHeaders{
    "connection", "content-length", "expect",  "keep-alive",       "proxy-connection",
    "te",         "trailer",        "upgrade", "transfer-encoding"};

bool isSessionHeader(std::string_view name) {
    return std::any_of(sessionHeaders.begin(), sessionHeaders.end(),
                       [name](std::string_view own) { return sameHeaderName(own, name); });
}

// For such a request libcurl adds no header that must be suppressed.
bool isWithoutBody(const URLRequest& request) { return request.httpMethod() == "GET" && !request.httpBody(); }

class Lines {
public:
    void add(std::string_view name, std::string_view value) {
        std::string line(name);
        // libcurl interprets "name:" as removing the header, and "name;" as a header without a value.
        if (trimmed(value).empty()) {
            line += ';';
        } else {
            line.append(": ").append(value);
        }
        append(line);
    }

    /// Keeps libcurl from adding a header of its own.
    void suppress(std::string_view name) { append(std::string(name) + ':'); }

    HeaderLines take() {
        if (!isComplete_) return nullptr;
        return {lines_.release(), curl_slist_free_all};
    }

private:
    void append(const std::string& line) {
        curl_slist* const longer = curl_slist_append(lines_.get(), line.c_str());
        isComplete_ = isComplete_ && longer != nullptr;
        if (longer == nullptr) return;
        static_cast<void>(lines_.release());
        lines_.reset(longer);
    }

    struct Deleter {
        void operator()(curl_slist* lines) const { curl_slist_free_all(lines); }
    };
    std::unique_ptr<curl_slist, Deleter> lines_;
    bool isComplete_ = true;
};

}  // namespace

HeaderLines headerLinesOf(const URLRequest& request, const std::string& cookies) {
    Lines lines;
    bool hasCodings = false;
    bool hasAgent = false;
    bool hasContentType = false;
    for (const auto& [name, value] : request.allHTTPHeaderFields()) {
        if (isSessionHeader(name)) continue;
        hasCodings = hasCodings || sameHeaderName(name, "accept-encoding");
        hasAgent = hasAgent || sameHeaderName(name, "user-agent");
        hasContentType = hasContentType || sameHeaderName(name, "content-type");
        lines.add(name, value);
    }
    if (!cookies.empty()) lines.add("Cookie", cookies);
    // "Accept: */*" is what libcurl sends by itself.
    if (!hasCodings) lines.add("Accept-Encoding", acceptedCodings);
    if (!hasAgent) lines.add("User-Agent", "VanticRestKit/" VRK_VERSION);
    if (isWithoutBody(request)) return lines.take();
    if (!hasContentType) {
        if (request.httpBody()) {
            lines.add("Content-Type", "application/x-www-form-urlencoded");
        } else {
            lines.suppress("Content-Type");
        }
    }
    lines.suppress("Expect");
    return lines.take();
}

HeaderLines HeaderLinesMemo::of(const URLRequest& request, const std::string& cookies) {
    if (!isWithoutBody(request)) return headerLinesOf(request, cookies);
    if (lines_ == nullptr || cookies_ != cookies || headers_ != request.allHTTPHeaderFields()) {
        headers_ = request.allHTTPHeaderFields();
        cookies_ = cookies;
        lines_ = headerLinesOf(request, cookies);
    }
    return lines_;
}

}  // namespace VanticRestKit::detail
