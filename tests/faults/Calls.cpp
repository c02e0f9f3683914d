#include "Calls.h"

#include <netdb.h>
#include <array>
#include <cerrno>
#include <charconv>

namespace VanticRestKit::test {

namespace {

constexpr std::array memory{ENOMEM};
constexpr std::array threads{EAGAIN};
constexpr std::array lookups{EAI_AGAIN, EAI_MEMORY, EAI_FAIL, EAI_SYSTEM};
constexpr std::array descriptors{EMFILE, ENFILE, ENOMEM};
constexpr std::array sockets{EMFILE, ENOBUFS, EACCES};
constexpr std::array connects{ECONNREFUSED, ENETUNREACH, ETIMEDOUT, EADDRNOTAVAIL};
constexpr std::array sends{EINTR, ECONNRESET, EPIPE, ENOBUFS};
constexpr std::array receives{EINTR, ECONNRESET, ENOMEM};
constexpr std::array interrupted{EINTR};
constexpr std::array polls{EINTR, ENOMEM};
constexpr std::array options{ENOBUFS};
constexpr std::array names{ENOBUFS, ENOTCONN};
constexpr std::array controls{EINTR, ENOLCK};
constexpr std::array files{EMFILE, EIO, EACCES, EINTR, ENOSPC};
constexpr std::array reads{EINTR, EIO};
constexpr std::array writes{EINTR, EIO, ENOSPC};
constexpr std::array statuses{EIO, ENOMEM};
constexpr std::array folders{EIO, ENOSPC, EACCES};
constexpr std::array syncs{EIO, ENOSPC};
constexpr std::array locks{EINTR, ENOLCK};
constexpr std::array closes{EINTR, EIO};

constexpr std::array<CallTraits, callCount> all{{
    {Call::malloc, "malloc", memory, true},
    {Call::calloc, "calloc", memory, true},
    {Call::realloc, "realloc", memory, true},
    {Call::alignedAlloc, "aligned_alloc", memory, true},
    {Call::mmap, "mmap", memory},
    {Call::pthreadCreate, "pthread_create", threads},
    {Call::getaddrinfo, "getaddrinfo", lookups},
    {Call::socket, "socket", sockets},
    {Call::socketpair, "socketpair", descriptors},
    {Call::connect, "connect", connects},
    {Call::send, "send", sends},
    {Call::recv, "recv", receives},
    {Call::poll, "poll", polls},
    {Call::eventfd, "eventfd", descriptors},
    {Call::setsockopt, "setsockopt", options},
    {Call::getsockopt, "getsockopt", options},
    {Call::getsockname, "getsockname", names},
    {Call::fcntl, "fcntl", controls},
    {Call::ioctl, "ioctl", interrupted},
    {Call::open, "open", files},
    {Call::read, "read", reads},
    {Call::write, "write", writes},
    {Call::stat, "stat", statuses},
    {Call::rename, "rename", folders},
    {Call::unlink, "unlink", folders},
    {Call::mkdir, "mkdir", folders},
    {Call::truncate, "truncate", reads},
    {Call::sync, "sync", syncs},
    {Call::flock, "flock", locks},
    {Call::close, "close", closes},
}};

template <class Number>
bool readNumber(std::string_view text, Number& number) {
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    return read.ec == std::errc() && read.ptr == text.data() + text.size();
}

}  // namespace

std::span<const CallTraits> callTraits() { return all; }

const CallTraits& traitsOf(Call call) { return all[static_cast<std::size_t>(call)]; }

std::string textOf(const Fault& fault) {
    return std::string(traitsOf(fault.call).name) + ':' + std::to_string(fault.number) + ':' +
           std::to_string(fault.error);
}

std::optional<Fault> faultOf(std::string_view text) {
    const auto first = text.find(':');
    const auto second = text.find(':', first + 1);
    if (first == std::string_view::npos || second == std::string_view::npos) return std::nullopt;
    for (const CallTraits& traits : all) {
        Fault fault{.call = traits.call};
        if (traits.name == text.substr(0, first) &&
            readNumber(text.substr(first + 1, second - first - 1), fault.number) &&
            readNumber(text.substr(second + 1), fault.error)) {
            return fault;
        }
    }
    return std::nullopt;
}

}  // namespace VanticRestKit::test
