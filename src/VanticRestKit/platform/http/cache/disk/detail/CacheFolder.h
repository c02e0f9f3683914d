#pragma once

/// \file
/// `CacheFolder`: the folder of a store on disk, and the names in it.

#include <chrono>
#include <string>

#include <sys/types.h>

namespace VanticRestKit::detail {

/// Which file a name stands for.
struct FileIdentity {
    dev_t device = 0;
    ino_t number = 0;
    bool isThere = false;
    bool isRegular = false;

    friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

/// Never opens the file itself: closing it again would take SQLite's locks on it away from the whole process.
class CacheFolder {
public:
    explicit CacheFolder(std::string path);

    const std::string& file() const noexcept { return file_; }
    FileIdentity identity() const noexcept;

    /// Makes the folder and an empty file if they are not there; 0 or the number of the error.
    int make() const;
    /// Takes the rights of others away from what is there already.
    void restrictModes() const noexcept;

    /// Renames the file and its log to a name with `suffix`. With `keepOthers` no earlier file of that name is replaced.
    int setAside(const std::string& suffix, bool keepOthers) const;
    void removeFile() const noexcept;

    /// For the time of its life no other process opens, renames or removes the file through this class. If the lock
    /// cannot be had within `patience` it goes on without: a process that was stopped must not stop all others.
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
