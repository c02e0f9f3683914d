#pragma once

/// \file
/// `CacheFolder`: the folder of a disk store, and the files in it.

#include <chrono>
#include <string>

#include <sys/types.h>

namespace VanticRestKit::detail {

/// Identifies the file behind a name.
struct FileIdentity {
    dev_t device = 0;
    ino_t number = 0;
    bool isThere = false;
    bool isRegular = false;

    friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

/// Never opens an existing database file: closing it again would release SQLite's locks for the whole process.
class CacheFolder {
public:
    explicit CacheFolder(std::string path);

    const std::string& file() const noexcept { return file_; }
    FileIdentity identity() const noexcept;

    /// Creates the folder and an empty file if they do not exist. Returns 0 or an `errno`.
    int make() const;
    /// Removes other users' access to existing files.
    void restrictModes() const noexcept;

    /// Renames the file and its log by appending `suffix`. With `keepOthers` an existing file of that name is not
    /// replaced. Returns 0 or an `errno`.
    int setAside(const std::string& suffix, bool keepOthers) const;
    void removeFile() const noexcept;

    /// While it exists, no other process opens, renames or removes the file through this class. If the lock cannot be
    /// acquired within `patience`, continues without it: a stopped process must not block all others.
    class Lock {
    public:
        Lock(const CacheFolder& folder, std::chrono::milliseconds patience);
        Lock(const Lock&) = delete;
        Lock& operator=(const Lock&) = delete;
        ~Lock();

    private:
        int descriptor_;
    };

private:
    std::string path_;
    std::string file_;
};

}  // namespace VanticRestKit::detail
