#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "server/Exchange.h"

namespace VanticRestKit::sample {

/// A free-form dataset of a user.
struct Dataset {
    std::string oid{};
    std::string source{};
    JSON values{};
    double created = 0;  // seconds since 1970
    double updated = 0;
};

/// How far a user has watched a video.
struct Progress {
    std::string oid{};
    std::string source{};
    std::string slug{};
    std::int64_t showId = 0;
    std::string houseNumber{};
    std::int64_t seconds = 0;
    bool done = false;
    double lastAccessed = 0;  // seconds since 1970
};

/// A show that a user has saved.
struct Saved {
    std::string oid{};
    std::string source{};
    std::string slug{};
    std::int64_t showId = 0;
    std::int64_t order = 0;
    double created = 0;  // seconds since 1970
};

/// All data of a user.
struct User {
    std::map<std::string, Dataset> datasets;  // by namespace
    std::vector<Progress> history;            // ordered by access, last watched last
    std::vector<Saved> saved;                 // in the order of saving
};

/// The records in the format of answers. `parent` is the user whose family `uid` belongs to; empty if there is none.
JSON written(const Dataset& dataset, const std::string& uid, const std::string& parent,
             const std::string& name);
JSON written(const Progress& progress, const std::string& uid);
JSON written(const Saved& saved);

/// All data of a user, for control requests.
JSON written(const User& user);

}  // namespace VanticRestKit::sample
