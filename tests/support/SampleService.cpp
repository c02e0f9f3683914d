#include "SampleService.h"

#include <gtest/gtest.h>
#include <httplib.h>

#include <fcntl.h>
#include <poll.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>

namespace VanticRestKit::test {

namespace {

constexpr int deadline = 30'000;  // milliseconds

/// Runs the program with its standard output in `output`.
pid_t start(const std::vector<std::string>& arguments, int output) {
    std::vector<std::string> command{VRK_SAMPLE_SERVICE};
    command.insert(command.end(), arguments.begin(), arguments.end());
    std::vector<char*> words;
    for (std::string& word : command) words.push_back(word.data());
    words.push_back(nullptr);
    const pid_t child = fork();
    if (child != 0) return child;
    dup2(output, STDOUT_FILENO);
    execv(words[0], words.data());
    _exit(127);
}

/// Waits for the end of a child process. Returns the exit code, -1 if it did not end in time or was killed.
int exitCode(pid_t process) {
    const int handle = static_cast<int>(syscall(SYS_pidfd_open, process, 0));
    pollfd ended{handle, POLLIN, 0};
    const bool inTime = poll(&ended, 1, deadline) == 1;
    close(handle);
    if (!inTime) kill(process, SIGKILL);
    int status = 0;
    waitpid(process, &status, 0);
    return inTime && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace

SampleService::SampleService(Transport transport) {
    std::vector<std::string> arguments;
    if (transport == Transport::https) {
        char folder[] = "/tmp/sample-service-XXXXXX";
        folder_ = mkdtemp(folder);
        authorityFile_ = folder_ + "/authority.pem";
        arguments = {"--tls", "--ca-out", authorityFile_};
    }
    run(std::move(arguments));
}

SampleService::SampleService(std::vector<std::string> options) { run(std::move(options)); }

void SampleService::run(std::vector<std::string> arguments) {
    arguments.insert(arguments.end(), {"--port", "0", "--end-with-parent"});
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) return;
    process_ = start(arguments, ends[1]);
    close(ends[1]);
    baseURL_ = firstLine(ends[0]);
    close(ends[0]);
    port_ = static_cast<std::uint16_t>(std::atoi(baseURL_.substr(baseURL_.rfind(':') + 1).c_str()));
    if (port_ == 0) end(SIGKILL);
    EXPECT_TRUE(isRunning()) << "the sample service did not start";
}

SampleService::~SampleService() {
    end(SIGTERM);
    if (!folder_.empty()) std::filesystem::remove_all(folder_);
}

std::string SampleService::firstLine(int output) const {
    std::string line;
    pollfd readable{output, POLLIN, 0};
    char byte = 0;
    while (poll(&readable, 1, deadline) == 1 && read(output, &byte, 1) == 1 && byte != '\n') line += byte;
    return line;
}

void SampleService::addFault(const nlohmann::json& fault) const {
    EXPECT_FALSE(control("POST", "/_control/faults", fault.dump()).is_null()) << fault.dump();
}

nlohmann::json SampleService::log() const { return control("GET", "/_control/log"); }

void SampleService::clearLog() const { control("DELETE", "/_control/log"); }

nlohmann::json SampleService::control(const std::string& method, const std::string& path,
                                      const std::string& body) const {
    httplib::Client client(baseURL_);
    if (!authorityFile_.empty()) client.set_ca_cert_path(authorityFile_);
    httplib::Request request;
    request.method = method;
    request.path = path;
    request.body = body;
    const auto answer = client.send(request);
    if (!answer || answer->status != 200) return nullptr;
    return nlohmann::json::parse(answer->body, nullptr, false);
}

int SampleService::end(int signal) {
    if (process_ <= 0) return -1;
    kill(process_, signal);
    return waitForEnd();
}

int SampleService::waitForEnd() {
    if (process_ <= 0) return -1;
    return exitCode(std::exchange(process_, -1));
}

int runSampleService(const std::vector<std::string>& arguments) {
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    const pid_t process = start(arguments, nowhere);
    close(nowhere);
    return exitCode(process);
}

}  // namespace VanticRestKit::test
