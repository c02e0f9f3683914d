#include "Origin.h"

#include <support/Certificates.h>
#include <support/Codings.h>
#include <support/FaultServer.h>
#include <support/Http2Origin.h>
#include <support/Reactor.h>

#include <sys/epoll.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>
#include <csignal>
#include <sstream>
#include <utility>

namespace VanticRestKit::test {

namespace {

std::string replyTo(const RawRequest& request, bool isSecure) {
    const std::string& target = request.target;
    const std::string document = videoDocument(request.header("x-probe"), request.header("cookie"));
    if (target.starts_with("/v2/video")) {
        return answer(302, "", "Location: /document\r\nSet-Cookie: crumb=42; Path=/\r\n");
    }
    if (target.starts_with("/v2/kept")) {
        return answer(200, document, "Cache-Control: max-age=600\r\nETag: \"1\"\r\n");
    }
    return isSecure ? answer(200, brotlied(document), "Content-Encoding: br\r\n")
                    : answer(200, gzipped(document), "Content-Encoding: gzip\r\n");
}

FaultServer::Script script(bool isSecure) {
    return [isSecure](FaultConnection& connection) {
        bool isFirst = true;
        while (const auto request = connection.readRequest()) {
            const bool isTooEarly = std::exchange(isFirst, false) && request->target.starts_with("/v2/later");
            if (!connection.send(isTooEarly ? answer(503, "{}") : replyTo(*request, isSecure))) return;
        }
    };
}

// The child process: serves until the other end of `control` is closed.
void serve(const Socket& control) {
    const CertificateAuthority root;
    const Identity identity = root.issue();
    const FaultServer plain(script(false));
    const FaultServer secure(script(true), &identity);
    Reactor reactor;
    const Http2Origin http2(reactor, {}, identity, nullptr, 1);
    const std::string text = std::to_string(plain.port()) + ' ' + std::to_string(secure.port()) + ' ' +
                             std::to_string(http2.port()) + ' ' + root.pem();
    sendAll(control.descriptor(), text.data(), text.size());
    shutdown(control.descriptor(), SHUT_WR);
    reactor.watch(control.descriptor(), EPOLLIN, [&reactor](std::uint32_t) { reactor.stop(); });
    reactor.run();
}

}  // namespace

std::string videoDocument(std::string_view probe, std::string_view cookie) {
    std::string text = R"({"id": "9184-0007", "type": "episode", "houseNumber": "ZW2114A007S00", "title": ")";
    text.append(probe).append(R"(", "showTitle": ")").append(cookie);
    text += R"(", "description": "A ferry pilot vanishes. Detective Amara Quill has until the tide turns.",
        "duration": 2591, "genres": ["Drama", "Crime"], "_links": {"self": {"href": "/v2/video/1"},
        "show": {"href": "/v2/show/the-saltmarsh-files"}, "nextEpisode": {"href": "/v2/video/2"}}})";
    return text;
}

Origin::Origin() {
    int ends[2] = {-1, -1};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) return;
    control_ = Socket(ends[0]);
    Socket childsEnd(ends[1]);
    process_ = fork();
    if (process_ == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        std::signal(SIGPIPE, SIG_IGN);
        control_.close();
        serve(childsEnd);
        _exit(0);
    }
    childsEnd.close();
    std::string text;
    char piece[4096];
    for (ssize_t count = 0; (count = read(control_.descriptor(), piece, sizeof(piece))) > 0;) {
        text.append(piece, static_cast<std::size_t>(count));
    }
    std::istringstream words(text);
    words >> addresses_.plain >> addresses_.secure >> addresses_.http2;
    words.ignore();
    std::getline(words, addresses_.authority, '\0');
}

Origin::~Origin() {
    control_.close();
    if (process_ <= 0) return;
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
}

}  // namespace VanticRestKit::test
