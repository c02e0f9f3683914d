#include "NameServer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/epoll.h>
#include <sys/socket.h>
#include <algorithm>
#include <array>
#include <cctype>
#include <utility>

namespace VanticRestKit::test {

namespace {

constexpr std::size_t headSize = 12;
constexpr unsigned char typeA = 1;
constexpr unsigned char typeAaaa = 28;

/// The name in a question, and the position of its end.
std::pair<std::string, std::size_t> nameIn(std::string_view question) {
    std::string name;
    std::size_t at = headSize;
    while (at < question.size() && question[at] != 0) {
        const auto length = static_cast<unsigned char>(question[at]);
        if (!name.empty()) name += '.';
        for (const char c : question.substr(at + 1, length)) {
            name += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        }
        at += std::size_t{1} + length;
    }
    return {name, at + 1};
}

/// A resource record for an address, or empty if the address has another type.
std::string recordOf(const std::string& address, unsigned char type) {
    std::array<char, 16> bytes{};
    const bool isV4 = type == typeA;
    if (inet_pton(isV4 ? AF_INET : AF_INET6, address.c_str(), bytes.data()) != 1) return {};
    const std::size_t size = isV4 ? 4 : 16;
    // The name of the question, the type, the class, a TTL of one second, the address.
    std::string record("\xc0\x0c\x00", 3);
    record += static_cast<char>(type);
    record.append("\x00\x01\x00\x00\x00\x01\x00", 7);
    record += static_cast<char>(size);
    return record.append(bytes.data(), size);
}

}  // namespace

NameServer::NameServer(Reactor& reactor)
    : reactor_(reactor), socket_(socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(53);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    isRunning_ =
        bind(socket_.descriptor(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0;
    reactor_.watch(socket_.descriptor(), EPOLLIN, [this](std::uint32_t) { answer(); });
}

NameServer::~NameServer() { reactor_.forget(socket_.descriptor()); }

void NameServer::set(const std::string& name, std::vector<std::string> addresses) {
    const std::lock_guard lock(mutex_);
    names_[name] = std::move(addresses);
}

void NameServer::setFault(NameFault fault) {
    const std::lock_guard lock(mutex_);
    fault_ = fault;
}

std::size_t NameServer::questionCount() const {
    const std::lock_guard lock(mutex_);
    return questions_;
}

void NameServer::answer() {
    std::array<char, 512> bytes;
    sockaddr_storage client{};
    socklen_t size = sizeof(client);
    const ssize_t count = recvfrom(socket_.descriptor(), bytes.data(), bytes.size(), 0,
                                   reinterpret_cast<sockaddr*>(&client), &size);
    if (count < static_cast<ssize_t>(headSize)) return;
    const std::string reply = answerTo(std::string_view(bytes.data(), static_cast<std::size_t>(count)));
    if (reply.empty()) return;
    static_cast<void>(sendto(socket_.descriptor(), reply.data(), reply.size(), MSG_NOSIGNAL,
                             reinterpret_cast<const sockaddr*>(&client), size));
}

std::string NameServer::answerTo(std::string_view question) {
    const auto [name, end] = nameIn(question);
    if (end + 4 > question.size()) return {};
    const auto type = static_cast<unsigned char>(question[end + 1]);
    const std::lock_guard lock(mutex_);
    ++questions_;
    if (fault_ == NameFault::silent) return {};
    const auto found = names_.find(name);
    constexpr char failure = 2;
    constexpr char unknown = 3;
    const bool isDenied = fault_ == NameFault::denies || found == names_.end();
    const char code = fault_ == NameFault::fails ? failure : isDenied ? unknown : 0;
    std::string records;
    unsigned char count = 0;
    if (code == 0 && (type == typeA || type == typeAaaa)) {
        for (const std::string& address : found->second) {
            const std::string record = recordOf(address, type);
            if (!record.empty()) ++count;
            records += record;
        }
    }
    // The ID of the question, the flags of a recursive response, the counts of questions and answers.
    std::string reply(question.substr(0, 2));
    reply += static_cast<char>(0x81);
    reply += static_cast<char>(0x80 | code);
    reply.append("\x00\x01\x00", 3);
    reply += static_cast<char>(count);
    reply.append(4, '\0');
    return reply.append(question.substr(headSize, end + 4 - headSize)).append(records);
}

}  // namespace VanticRestKit::test
