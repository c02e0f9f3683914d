#pragma once

/// \file
/// `HeaderCollector`: makes status and header fields of the lines of an answer.

#include <VanticRestKit/platform/http/detail/URLErrors.h>
#include <VanticRestKit/platform/http/HTTPURLResponse.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace VanticRestKit::detail {

/// Takes an answer's header lines one by one. Interim answers (1xx) are passed over, and so are the trailers
/// behind a body.
class HeaderCollector {
public:
    /// Takes one line, with or without its line end.
    void add(std::string_view line);

    /// Whether the empty line behind the headers of the final answer has come.
    bool isComplete() const noexcept { return place_ == Place::behind; }

    /// What is wrong with the lines so far; empty if nothing is.
    const std::optional<TransportFault>& fault() const noexcept { return fault_; }

    std::int64_t status() const noexcept { return status_; }
    /// Whether the answer came over a protocol that carries several answers at once on one connection.
    bool isMultiplexed() const noexcept { return multiplexed_; }
    const HTTPURLResponse::HeaderFields& fields() const noexcept { return fields_; }
    HTTPURLResponse::HeaderFields takeFields() noexcept { return std::move(fields_); }
    /// The value of a field, its name compared without case.
    std::optional<std::string> value(std::string_view name) const;
    /// The first Location.
    const std::optional<std::string>& location() const noexcept { return location_; }
    /// How long the body will be, as the server says.
    std::optional<std::uint64_t> contentLength() const noexcept { return contentLength_; }

private:
    enum class Place { before, inside, behind };

    void begin(std::string_view statusLine);
    void addField(std::string_view line);
    void readLength(std::string_view value);
    void finish();

    Place place_ = Place::before;
    std::int64_t status_ = 0;
    bool multiplexed_ = false;
    HTTPURLResponse::HeaderFields fields_;
    std::string* last_ = nullptr;
    std::optional<std::string> location_;
    std::optional<std::uint64_t> contentLength_;
    std::optional<TransportFault> fault_;
    std::size_t size_ = 0;
};

}  // namespace VanticRestKit::detail
