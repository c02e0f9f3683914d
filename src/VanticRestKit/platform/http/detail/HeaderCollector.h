#pragma once

/// \file
/// `HeaderCollector`: makes status and header fields of the lines of an answer.

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

/// Takes an answer's header lines one by one. Interim answers (1xx) are passed over, and so are the trailers
/// after a body; but they count against the limits.
class HeaderCollector {
public:
    /// `limits` must outlive the collector.
    explicit HeaderCollector(const URLSessionLimits& limits = defaultLimits) : limits_(limits) {}

    /// Takes one line, with or without its line end.
    void add(std::string_view line);

    /// Whether the empty line behind the headers of the final answer has come.
    bool isComplete() const noexcept { return place_ == Place::behind; }

    /// What is wrong with the lines so far; empty if nothing is.
    const std::optional<TransportFault>& fault() const noexcept { return fault_; }

    /// The size of all lines so far.
    std::uint64_t size() const noexcept { return size_; }
    std::int64_t status() const noexcept { return status_; }
    /// Whether the answer came over a protocol that carries several answers at once on one connection.
    bool isMultiplexed() const noexcept { return multiplexed_; }
    const HTTPURLResponse::HeaderFields& fields() const noexcept { return fields_; }
    HTTPURLResponse::HeaderFields takeFields() noexcept {
        byName_.clear();
        return std::move(fields_);
    }
    /// The value of a field, its name compared without case.
    std::optional<std::string> value(std::string_view name) const;
    /// The first Location.
    const std::optional<std::string>& location() const noexcept { return location_; }
    /// The values of the Set-Cookie lines, which cannot be told apart once they are joined.
    const std::vector<std::string>& setCookies() const noexcept { return setCookies_; }
    /// How long the body will be, as the server says.
    std::optional<std::uint64_t> contentLength() const noexcept { return contentLength_; }

private:
    enum class Place { before, inside, behind };

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
    // The fields by name without case, so that a head is not searched from its start for each line.
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
