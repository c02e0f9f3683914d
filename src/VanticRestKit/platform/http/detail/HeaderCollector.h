#pragma once

/// \file
/// `HeaderCollector`: parses the header lines of a response.

#include <VanticRestKit/platform/http/detail/HeaderName.h>
#include <VanticRestKit/platform/http/detail/LimitFaults.h>
#include <VanticRestKit/platform/http/detail/URLErrors.h>
#include <VanticRestKit/platform/http/HTTPURLResponse.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace VanticRestKit::detail {

/// Takes a response's header lines one by one. Interim responses (1xx) and trailers after a body are ignored, but count
/// against the limits.
class HeaderCollector {
public:
    /// `limits` must outlive the collector.
    explicit HeaderCollector(const URLSessionLimits& limits = defaultLimits) : limits_(limits) {}

    /// Takes one line, with or without its line end.
    void add(std::string_view line);

    /// Whether the empty line after the headers of the final response has been received.
    bool isComplete() const noexcept { return place_ == Place::after; }

    /// The fault of the lines so far; empty if there is none.
    const std::optional<TransportFault>& fault() const noexcept { return fault_; }

    /// The size of all lines so far.
    std::uint64_t size() const noexcept { return size_; }
    std::int64_t status() const noexcept { return status_; }
    /// Whether the response came over a protocol that multiplexes responses on one connection.
    bool isMultiplexed() const noexcept { return multiplexed_; }
    const HTTPURLResponse::HeaderFields& fields() const noexcept { return fields_; }
    HTTPURLResponse::HeaderFields takeFields() noexcept {
        byName_.clear();
        return std::move(fields_);
    }
    /// The value of a field; names compare case-insensitively.
    std::optional<std::string> value(std::string_view name) const;
    /// The first Location.
    const std::optional<std::string>& location() const noexcept { return location_; }
    /// The values of the Set-Cookie lines, which cannot be separated once they are joined.
    const std::vector<std::string>& setCookies() const noexcept { return setCookies_; }
    /// The declared length of the body.
    std::optional<std::uint64_t> contentLength() const noexcept { return contentLength_; }

private:
    enum class Place { before, inside, after };

    using Field = HTTPURLResponse::HeaderFields::value_type;

    void count(std::string_view line);
    void begin(std::string_view statusLine);
    void addField(std::string_view line);
    void readLength(std::string_view value);
    void finish();

    const URLSessionLimits& limits_;
    Place place_ = Place::before;
    std::int64_t status_ = 0;
    bool multiplexed_ = false;
    HTTPURLResponse::HeaderFields fields_;
    // The fields by case-insensitive name, so that adding a line does not search all fields.
    std::map<std::string_view, Field*, HeaderNameLess> byName_;
    std::string* last_ = nullptr;
    std::optional<std::string> location_;
    std::vector<std::string> setCookies_;
    bool isInSetCookie_ = false;
    std::optional<std::uint64_t> contentLength_;
    std::optional<TransportFault> fault_;
    std::uint64_t size_ = 0;
    std::uint64_t lines_ = 0;
    std::uint64_t interimAnswers_ = 0;
};

}  // namespace VanticRestKit::detail
