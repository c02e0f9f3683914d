#include <VanticRestKit/platform/http/detail/HeaderCollector.h>
#include <VanticRestKit/platform/http/detail/HeaderName.h>

#include <charconv>

namespace VanticRestKit::detail {

void HeaderCollector::add(std::string_view line) {
    count(line);
    if (fault_ || place_ == Place::after) return;
    while (!line.empty() && (line.back() == '\n' || line.back() == '\r')) line.remove_suffix(1);
    if (place_ == Place::before) {
        if (line.starts_with("HTTP/")) begin(line);
    } else if (line.empty()) {
        finish();
    } else {
        addField(line);
    }
}

void HeaderCollector::count(std::string_view line) {
    if (fault_) return;
    size_ += line.size();
    ++lines_;
    if (line.size() > limits_.maxHeaderLineBytes) {
        fault_ = longHeaderLineFault(limits_);
    } else if (size_ > limits_.maxHeadBytes) {
        fault_ = largeHeadFault(limits_);
    } else if (lines_ > limits_.maxHeadLines) {
        fault_ =
            limitFault("The answer has more than " + std::to_string(limits_.maxHeadLines) + " header lines",
                       "maxHeadLines");
    }
}

void HeaderCollector::begin(std::string_view line) {
    place_ = Place::inside;
    byName_.clear();
    fields_.clear();
    last_ = nullptr;
    location_.reset();
    setCookies_.clear();
    isInSetCookie_ = false;
    contentLength_.reset();
    multiplexed_ = line.starts_with("HTTP/2") || line.starts_with("HTTP/3");
    status_ = 0;
    if (const auto blank = line.find(' '); blank != std::string_view::npos) {
        const std::string_view rest = trimmed(line.substr(blank));
        std::from_chars(rest.data(), rest.data() + rest.size(), status_);
    }
}

void HeaderCollector::addField(std::string_view line) {
    if (line.front() == ' ' || line.front() == '\t') {
        // A folded value that continues on the next line, as some old servers send it.
        if (last_ != nullptr) last_->append(1, ' ').append(trimmed(line));
        if (isInSetCookie_) setCookies_.back().append(1, ' ').append(trimmed(line));
        return;
    }
    const auto colon = line.find(':');
    if (colon == std::string_view::npos) return;
    const std::string_view name = trimmed(line.substr(0, colon));
    const std::string_view value = trimmed(line.substr(colon + 1));
    if (sameHeaderName(name, "content-length")) readLength(value);
    if (sameHeaderName(name, "location") && !location_) location_ = value;
    isInSetCookie_ = sameHeaderName(name, "set-cookie");
    if (isInSetCookie_) setCookies_.emplace_back(value);
    if (const auto found = byName_.find(name); found != byName_.end()) {
        last_ = &found->second->second.append(", ").append(value);
        return;
    }
    Field& field = *fields_.emplace(name, value).first;
    byName_.emplace(field.first, &field);
    last_ = &field.second;
}

void HeaderCollector::readLength(std::string_view value) {
    // One line may contain the number several times, joined by a proxy.
    while (true) {
        const auto comma = value.find(',');
        const std::string_view item = trimmed(value.substr(0, comma));
        std::uint64_t length = 0;
        const auto [end, error] = std::from_chars(item.data(), item.data() + item.size(), length);
        if (item.empty() || error != std::errc() || end != item.data() + item.size()) {
            fault_ = TransportFault{URLErrorCode::cannotParseResponse,
                                    "The Content-Length of the response is not a number."};
        } else if (contentLength_ && *contentLength_ != length) {
            fault_ = TransportFault{URLErrorCode::cannotParseResponse,
                                    "The response has two different Content-Lengths."};
        } else {
            contentLength_ = length;
        }
        if (comma == std::string_view::npos) return;
        value.remove_prefix(comma + 1);
    }
}

void HeaderCollector::finish() {
    constexpr std::int64_t switchingProtocols = 101;
    const bool interim = status_ >= 100 && status_ < 200 && status_ != switchingProtocols;
    place_ = interim ? Place::before : Place::after;
    if (interim && ++interimAnswers_ > limits_.maxInterimAnswers) {
        fault_ = limitFault(
            "The answer has more than " + std::to_string(limits_.maxInterimAnswers) + " interim answers",
            "maxInterimAnswers");
    }
    last_ = nullptr;
}

std::optional<std::string> HeaderCollector::value(std::string_view name) const {
    const auto found = byName_.find(name);
    if (found == byName_.end()) return std::nullopt;
    return found->second->second;
}

}  // namespace VanticRestKit::detail
