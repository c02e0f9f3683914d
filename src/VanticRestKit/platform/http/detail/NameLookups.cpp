#include <VanticRestKit/platform/http/detail/NameLookups.h>

#include <algorithm>

namespace VanticRestKit::detail {

namespace {

// An IPv6 address has brackets. Other notations of an IPv4 address count as names, which does no harm.
bool hasAddress(std::string_view origin) {
    const auto begin = origin.find("://");
    std::string_view host = begin == std::string_view::npos ? origin : origin.substr(begin + 3);
    if (host.starts_with('[')) return true;
    host = host.substr(0, host.rfind(':'));
    return !host.empty() && host.find_first_not_of("0123456789.") == std::string_view::npos;
}

}  // namespace

NameLookups::Name::Name(std::string_view origin) : isAddress_(hasAddress(origin)) {}

NameLookups::NameLookups(std::size_t maxAtOnce) : maxAtOnce_(std::max<std::size_t>(maxAtOnce, 1)) {}

void NameLookups::begin(Name& name, Ticket& ticket, TimePoint now) noexcept {
    if (!isNeeded(name, now)) return;
    ticket.generation_ = name.generation_;
    ++name.pending_;
    ++running_;
}

void NameLookups::end(Name& name, Ticket& ticket) noexcept {
    const bool isPending = ticket.generation_ == name.generation_;
    ticket.generation_ = 0;
    if (!isPending) return;
    --name.pending_;
    --running_;
}

void NameLookups::learn(Name& name, TimePoint until) noexcept {
    name.knownUntil_ = std::max(name.knownUntil_, until);
    running_ -= name.pending_;
    name.pending_ = 0;
    ++name.generation_;
}

}  // namespace VanticRestKit::detail
