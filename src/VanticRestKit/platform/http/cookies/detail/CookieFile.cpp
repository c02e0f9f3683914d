#include <VanticRestKit/platform/http/cookies/detail/CookieFile.h>

#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/http/cookies/detail/CookieFileText.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string_view>
#include <utility>

namespace VanticRestKit::detail {

namespace {

// Codes of NSCocoaErrorDomain.
constexpr int cannotBeRead = 257;
constexpr int isDamaged = 259;
constexpr int cannotBeWritten = 512;

// Far more than the maximum number of maximum-size cookies takes.
constexpr off_t maxFileSize = 64L * 1024 * 1024;

class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() {
        if (number_ >= 0) ::close(number_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int number() const noexcept { return number_; }
    explicit operator bool() const noexcept { return number_ >= 0; }

private:
    const int number_;
};

/// The contents of a regular file. No value if it cannot be read; `errno` has the reason.
std::optional<std::string> contentOf(const std::string& path) {
    // O_NONBLOCK: opening a pipe must not block.
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file) return std::nullopt;
    struct stat status {};
    if (::fstat(file.number(), &status) != 0) return std::nullopt;
    if (!S_ISREG(status.st_mode)) {
        errno = EINVAL;
        return std::nullopt;
    }
    if (status.st_size > maxFileSize) return std::string();
    std::string text(static_cast<std::size_t>(status.st_size), '\0');
    std::size_t size = 0;
    while (size < text.size()) {
        const ssize_t count = ::read(file.number(), text.data() + size, text.size() - size);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return std::nullopt;
        if (count == 0) break;
        size += static_cast<std::size_t>(count);
    }
    text.resize(size);
    return text;
}

bool writeAll(int file, std::string_view text) {
    while (!text.empty()) {
        const ssize_t count = ::write(file, text.data(), text.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return false;
        text.remove_prefix(static_cast<std::size_t>(count));
    }
    return ::fsync(file) == 0;
}

/// Makes a rename in `path`'s folder durable. Not all file systems support this; the file is complete either way.
void syncFolderOf(const std::string& path) {
    const auto slash = path.find_last_of('/');
    const std::string folder = slash == std::string::npos ? "." : path.substr(0, slash + 1);
    const Descriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened) static_cast<void>(::fsync(opened.number()));
}

}  // namespace

CookieFile::CookieFile(HTTPCookieFile file)
    : path_(std::move(file.path)), onProblem_(std::make_shared<OnProblem>(std::move(file.onProblem))) {}

std::vector<HTTPCookie> CookieFile::read() {
    const auto text = contentOf(path_);
    if (!text) {
        if (errno == ENOENT) return {};
        isUsable_ = false;
        report(cannotBeRead, "The file of the cookies cannot be read, and will not be written.", errno);
        return {};
    }
    auto cookies = readCookieFileText(*text);
    if (cookies) return *std::move(cookies);
    const bool isSetAside = std::rename(path_.c_str(), (path_ + ".damaged").c_str()) == 0;
    const int reason = isSetAside ? 0 : errno;
    report(isDamaged,
           isSetAside ? "The file of the cookies is damaged and was set aside."
                      : "The file of the cookies is damaged, but could not be set aside.",
           reason);
    return {};
}

void CookieFile::write(const std::vector<HTTPCookie>& cookies) {
    if (!isUsable_ || replace(cookieFileText(cookies))) return;
    report(cannotBeWritten, "The file of the cookies cannot be written.", errno);
}

// Writes a temporary file and renames it, so that a partly written file is never visible under the name.
bool CookieFile::replace(const std::string& text) {
    std::string temporary = path_ + ".XXXXXX";
    const Descriptor file(::mkostemp(temporary.data(), O_CLOEXEC));
    if (!file) return false;
    if (writeAll(file.number(), text) && std::rename(temporary.c_str(), path_.c_str()) == 0) {
        syncFolderOf(path_);
        return true;
    }
    const int reason = errno;
    ::unlink(temporary.c_str());
    errno = reason;
    return false;
}

void CookieFile::report(int code, const char* what, int errorNumber) {
    Dictionary userInfo;
    userInfo.emplace(NSLocalizedDescriptionKey, what);
    if (errorNumber != 0) {
        userInfo.emplace(NSUnderlyingErrorKey, Error(NSError("NSPOSIXErrorDomain", errorNumber)));
    }
    queue_.async(
        [onProblem = onProblem_, error = Error(NSError("NSCocoaErrorDomain", code, std::move(userInfo)))] {
            if (*onProblem) (*onProblem)(error);
        });
}

}  // namespace VanticRestKit::detail
