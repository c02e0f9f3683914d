#include "Nghttpx.h"

#include "Sockets.h"

#include <gtest/gtest.h>
#include <openssl/ssl.h>

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <chrono>
#include <csignal>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit::test {

namespace {

/// Runs a program with its output in `log`. It is ended when the calling thread ends.
pid_t start(const std::vector<std::string>& command, const std::string& log) {
    std::vector<char*> arguments;
    for (const std::string& word : command) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    const pid_t child = fork();
    if (child != 0) return child;
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    const int output = open(log.c_str(), O_WRONLY | O_APPEND);
    dup2(output, STDOUT_FILENO);
    dup2(output, STDERR_FILENO);
    execvp(arguments[0], arguments.data());
    _exit(127);
}

/// Whether a handshake succeeds. The port accepts connections before the server answers.
bool speaksTls(const Socket& socket) {
    if (!socket) return false;
    const std::unique_ptr<SSL_CTX, void (*)(SSL_CTX*)> context(SSL_CTX_new(TLS_client_method()),
                                                               &SSL_CTX_free);
    const std::unique_ptr<SSL, void (*)(SSL*)> ssl(SSL_new(context.get()), &SSL_free);
    SSL_set_fd(ssl.get(), socket.descriptor());
    return SSL_connect(ssl.get()) == 1;
}

std::string contentOf(const std::string& path) {
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
}

}  // namespace

Nghttpx::Nghttpx(std::uint16_t backend, const Identity& identity, int streamsPerConnection)
    : certificate_(identity.certificatePem()), key_(identity.keyPem()) {
    // Another process may bind the port first.
    constexpr int maxTries = 5;
    for (int tries = 0; tries < maxTries && process_ < 0; ++tries) {
        port_ = unusedPort();
        process_ =
            start({"nghttpx", "--conf=/dev/null", "--single-process", "--workers=1", "--no-ocsp",
                   "--log-level=WARN", "--frontend=127.0.0.1," + std::to_string(port_),
                   "--backend=127.0.0.1," + std::to_string(backend), "--backend-connections-per-host=200",
                   "--frontend-http2-max-concurrent-streams=" + std::to_string(streamsPerConnection),
                   // More than a client accepts.
                   "--max-response-header-fields=5000", key_.path(), certificate_.path()},
                  log_.path());
        if (!waitUntilItAnswers()) kill();
    }
    EXPECT_TRUE(isRunning()) << "nghttpx did not start:\n" << contentOf(log_.path());
}

Nghttpx::~Nghttpx() { kill(); }

void Nghttpx::kill() {
    if (process_ <= 0) return;
    ::kill(process_, SIGKILL);
    waitpid(std::exchange(process_, -1), nullptr, 0);
}

// There is no event for readiness, so the server is polled.
bool Nghttpx::waitUntilItAnswers() const {
    using Clock = std::chrono::steady_clock;
    const auto deadline = Clock::now() + std::chrono::seconds(20);
    while (Clock::now() < deadline) {
        if (speaksTls(connectToLoopback(port_))) return true;
        if (waitpid(process_, nullptr, WNOHANG) == process_) return false;
        poll(nullptr, 0, 5);
    }
    return false;
}

}  // namespace VanticRestKit::test
