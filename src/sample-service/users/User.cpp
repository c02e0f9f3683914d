#include "users/User.h"

#include <cmath>
#include <cstdio>
#include <ctime>

namespace VanticRestKit::sample {

namespace {

std::string utc(double seconds, const char* format) {
    const auto whole = static_cast<std::time_t>(std::floor(seconds));
    std::tm parts{};
    char text[32];
    gmtime_r(&whole, &parts);
    std::strftime(text, sizeof text, format, &parts);
    return text;
}

// Datasets have dates in seconds; history and watchlist records in milliseconds, with a numeric offset.
std::string datasetDate(double seconds) { return utc(seconds, "%Y-%m-%dT%H:%M:%SZ"); }

std::string recordDate(double seconds) {
    const auto milliseconds = static_cast<int>((seconds - std::floor(seconds)) * 1000);
    char fraction[8];
    std::snprintf(fraction, sizeof fraction, ".%03d", milliseconds);
    return utc(seconds, "%Y-%m-%dT%H:%M:%S") + fraction + "+0000";
}

}  // namespace

JSON written(const Dataset& dataset, const std::string& uid, const std::string& parent,
             const std::string& name) {
    JSON json{{"uid", uid}};
    if (!parent.empty()) json["parent_uid"] = parent;
    json["oid"] = dataset.oid;
    json["source"] = dataset.source;
    json["namespace"] = name;
    json["dataset"] = dataset.values;
    json["created"] = datasetDate(dataset.created);
    json["updated"] = datasetDate(dataset.updated);
    return json;
}

JSON written(const Progress& progress, const std::string& uid) {
    return {{"source", progress.source},
            {"uid", uid},
            {"oid", progress.oid},
            {"slug", progress.slug},
            {"namespace", "video"},
            {"key", progress.houseNumber},
            {"progress", progress.seconds},
            {"done", progress.done},
            {"lastAccessed", recordDate(progress.lastAccessed)}};
}

JSON written(const Saved& saved) {
    return {{"source", saved.source},
            {"oid", saved.oid},
            {"slug", saved.slug},
            {"namespace", "show"},
            {"key", std::to_string(saved.showId)},
            {"order", saved.order},
            {"created", recordDate(saved.created)},
            {"updated", recordDate(saved.created)}};
}

JSON written(const User& user) {
    JSON json{{"datasets", JSON::object()}, {"history", JSON::array()}, {"saved", JSON::array()}};
    for (const auto& [name, dataset] : user.datasets) json["datasets"][name] = dataset.values;
    for (const auto& progress : user.history) {
        json["history"].push_back({{"show", progress.showId},
                                   {"video", progress.houseNumber},
                                   {"progress", progress.seconds},
                                   {"done", progress.done}});
    }
    for (const auto& saved : user.saved)
        json["saved"].push_back({{"slug", saved.slug}, {"show", saved.showId}});
    return json;
}

}  // namespace VanticRestKit::sample
