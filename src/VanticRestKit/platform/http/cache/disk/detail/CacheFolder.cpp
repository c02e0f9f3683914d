#include <VanticRestKit/platform/http/cache/disk/detail/CacheFolder.h>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cerrno>
#include <cstdio>
#include <thread>
#include <utility>

namespace VanticRestKit::detail {

namespace {

constexpr mode_t folderMode = 0700;
constexpr mode_t fileMode = 0600;

int makeFolders(const std::string& path) {
    for (std::size_t end = 0; end != std::string::npos;) {
        end = path.find('/', end + 1);
        const std::string part = path.substr(0, end);
        if (mkdir(part.c_str(), folderMode) == 0 || errno == EEXIST) continue;
        // Creating a parent may fail because it is not writable; only the last folder decides.
        if (end == std::string::npos) return errno;
    }
    return 0;
}

void restrictMode(const std::string& path) noexcept {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return;
    if ((status.st_mode & 0777U) != fileMode) static_cast<void>(chmod(path.c_str(), fileMode));
}

}  // namespace

CacheFolder::CacheFolder(std::string path) : path_(std::move(path)) {
    while (path_.size() > 1 && path_.back() == '/') path_.pop_back();
    file_ = path_ + "/cache.sqlite";
}

FileIdentity CacheFolder::identity() const noexcept {
    struct stat status {};
    if (stat(file_.c_str(), &status) != 0) return {};
    return {status.st_dev, status.st_ino, true, S_ISREG(status.st_mode)};
}

int CacheFolder::make() const {
    if (path_.empty()) return ENOENT;
    if (const int error = makeFolders(path_); error != 0) return error;
    const int made = open(file_.c_str(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC | O_NOFOLLOW, fileMode);
    if (made < 0) return errno == EEXIST ? 0 : errno;
    // A new file has no locks that closing it could release.
    close(made);
    return 0;
}

void CacheFolder::restrictModes() const noexcept {
    for (const char* suffix : {"", "-wal", "-shm"}) restrictMode(file_ + suffix);
}

int CacheFolder::setAside(const std::string& suffix, bool keepOthers) const {
    std::string target = file_ + suffix;
    for (int number = 2; keepOthers && access(target.c_str(), F_OK) == 0; ++number) {
        target = file_ + suffix + "-" + std::to_string(number);
    }
    if (rename(file_.c_str(), target.c_str()) != 0) return errno;
    // The log belongs to the renamed file. If there is none, remove an older log of the target name, or it would be
    // taken for this one.
    if (rename((file_ + "-wal").c_str(), (target + "-wal").c_str()) != 0) unlink((target + "-wal").c_str());
    unlink((file_ + "-shm").c_str());
    return 0;
}

void CacheFolder::removeFile() const noexcept {
    for (const char* suffix : {"", "-wal", "-shm"}) unlink((file_ + suffix).c_str());
}

CacheFolder::Lock::Lock(const CacheFolder& folder, std::chrono::milliseconds patience)
    : descriptor_(
          open((folder.path_ + "/cache.lock").c_str(), O_CREAT | O_RDWR | O_CLOEXEC | O_NOFOLLOW, fileMode)) {
    if (descriptor_ < 0) return;
    const auto deadline = std::chrono::steady_clock::now() + patience;
    while (flock(descriptor_, LOCK_EX | LOCK_NB) != 0 && std::chrono::steady_clock::now() < deadline) {
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
}

CacheFolder::Lock::~Lock() {
    if (descriptor_ < 0) return;
    // Closing is not enough: a child forked meanwhile has the descriptor too.
    flock(descriptor_, LOCK_UN);
    close(descriptor_);
}

}  // namespace VanticRestKit::detail
