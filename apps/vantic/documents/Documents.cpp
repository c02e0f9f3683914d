#include "documents/Documents.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "Failure.h"
#include "Output.h"

namespace vantic {

namespace {

constexpr std::size_t blockSize = std::size_t{1} << 18;

[[noreturn]] void fail(const std::string& name) {
    throw Failed{"cannot read " + name + ": " + std::strerror(errno)};
}

bool isStandardInput(const std::optional<std::string>& file) { return !file || *file == "-"; }

}  // namespace

Input::Input(const std::optional<std::string>& file)
    : file_(isStandardInput(file) ? STDIN_FILENO : ::open(file->c_str(), O_RDONLY | O_CLOEXEC)),
      name_(isStandardInput(file) ? "standard input" : *file) {
    if (file_ < 0) fail(name_);
}

Input::~Input() {
    if (file_ != STDIN_FILENO) ::close(file_);
}

std::string Input::readAll() {
    while (readBlock()) {
    }
    return std::move(bytes_);
}

std::optional<std::string_view> Input::readLine() {
    std::size_t searched = at_;
    for (;;) {
        const std::size_t end = bytes_.find('\n', searched);
        if (end != std::string::npos) {
            const std::string_view line = std::string_view(bytes_).substr(at_, end - at_);
            at_ = end + 1;
            return line;
        }
        bytes_.erase(0, at_);
        at_ = 0;
        searched = bytes_.size();
        // A program that sends lines one by one receives all responses so far before this blocks for more input.
        flush();
        if (readBlock()) continue;
        if (bytes_.empty()) return std::nullopt;
        at_ = bytes_.size();
        return bytes_;
    }
}

bool Input::readBlock() {
    const std::size_t before = bytes_.size();
    bytes_.resize(before + blockSize);
    ssize_t count;
    do {
        count = ::read(file_, bytes_.data() + before, blockSize);
    } while (count < 0 && errno == EINTR);
    bytes_.resize(before + (count > 0 ? static_cast<std::size_t>(count) : 0));
    if (count < 0) fail(name_);
    return count > 0;
}

}  // namespace vantic
