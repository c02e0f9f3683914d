#include <string_view>

#include "routes/UserTable.h"
#include "server/Clock.h"
#include "server/FormBody.h"

namespace VanticRestKit::sample {

namespace {

// Returned only if the request includes private data.
constexpr const char* privateKey = "birthYear";

/// The family of "ann.tim" is that of "ann"; "ann" is a parent, whose data is not returned.
std::string parentOf(const std::string& uid) {
    const auto dot = uid.rfind('.');
    return dot == std::string::npos ? "" : uid.substr(0, dot);
}

bool includes(const Request& request, std::string_view word) {
    const std::string list = "," + queryValue(request, "include").value_or("") + ",";
    return list.find("," + std::string(word) + ",") != std::string::npos;
}

JSON shown(const Dataset& dataset, const std::string& uid, const std::string& name, const Request& request) {
    JSON json = written(dataset, uid, parentOf(uid), name);
    if (!includes(request, "private")) json["dataset"].erase(privateKey);
    return json;
}

Reply missing(const std::string& name) { return failure(404, "The user has no dataset " + name); }

Dataset* find(Users::All& all, const std::string& uid, const std::string& name) {
    const auto user = all.find(uid);
    if (user == all.end()) return nullptr;
    const auto dataset = user->second.datasets.find(name);
    return dataset == user->second.datasets.end() ? nullptr : &dataset->second;
}

Reply read(Users::All& all, const Asked& asked, const Request& request, const std::string& name) {
    JSON data = JSON::array();
    if (const Dataset* own = find(all, asked.uid, name))
        data.push_back(shown(*own, asked.uid, name, request));
    if (includes(request, "family")) {
        for (const auto& [uid, user] : all) {
            const Dataset* const theirs = parentOf(uid) == asked.uid ? find(all, uid, name) : nullptr;
            if (theirs != nullptr) data.push_back(shown(*theirs, uid, name, request));
        }
    }
    return data.empty() ? missing(name) : records("dataset", std::move(data));
}

/// The dataset in a body; empty if there is none.
std::optional<JSON> valuesIn(const Request& request) {
    const auto text = formField(request.body, "dataset");
    if (!text) return std::nullopt;
    JSON values = JSON::parse(*text, nullptr, false);
    if (!values.is_object()) return std::nullopt;
    return values;
}

Reply unreadable() { return failure(400, "The body contains no dataset"); }

Reply create(Users::All& all, const Asked& asked, const Request& request, const std::string& name,
             Users& users) {
    auto values = valuesIn(request);
    if (!values) return unreadable();
    if (find(all, asked.uid, name) != nullptr) return failure(409, "The user already has a dataset " + name);
    const double now = serviceClock().now();
    Dataset& made = all[asked.uid].datasets[name];
    made = {.oid = users.newId(),
            .source = asked.source,
            .values = *std::move(values),
            .created = now,
            .updated = now};
    return records("dataset", JSON::array({shown(made, asked.uid, name, request)}));
}

Reply update(Users::All& all, const Asked& asked, const Request& request, const std::string& name) {
    const auto values = valuesIn(request);
    if (!values) return unreadable();
    Dataset* const kept = find(all, asked.uid, name);
    if (kept == nullptr) return missing(name);
    for (const auto& [key, value] : values->items()) kept->values[key] = value;
    kept->updated = serviceClock().now();
    return records("dataset", JSON::array({shown(*kept, asked.uid, name, request)}));
}

Reply remove(Users::All& all, const Asked& asked, const std::string& name) {
    if (find(all, asked.uid, name) == nullptr) return missing(name);
    all[asked.uid].datasets.erase(name);
    return records("dataset", JSON::array());
}

}  // namespace

std::vector<Route> datasetRoutes(Users& users) {
    constexpr const char* pattern = "v2/dataset/{namespace}";
    return {
        {"GET", pattern,
         [&users](const Request& request, const Captures& captures) {
             return users.answer(request, [&](Users::All& all, const Asked& asked) {
                 return read(all, asked, request, captures[0]);
             });
         }},
        {"POST", pattern,
         [&users](const Request& request, const Captures& captures) {
             return users.answer(request, [&](Users::All& all, const Asked& asked) {
                 return create(all, asked, request, captures[0], users);
             });
         }},
        {"PATCH", pattern,
         [&users](const Request& request, const Captures& captures) {
             return users.answer(request, [&](Users::All& all, const Asked& asked) {
                 return update(all, asked, request, captures[0]);
             });
         }},
        {"DELETE", pattern,
         [&users](const Request& request, const Captures& captures) {
             return users.answer(request, [&](Users::All& all, const Asked& asked) {
                 return remove(all, asked, captures[0]);
             });
         }},
    };
}

}  // namespace VanticRestKit::sample
