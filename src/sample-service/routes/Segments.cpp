#include "catalogue/Catalogue.h"
#include "routes/UserTable.h"

namespace VanticRestKit::sample {

namespace {

// Like the real service, the answer has more fields than clients read.
constexpr const char* kidsFans = "vantic_main_127";
constexpr const char* everybody = "vantic_main_9";
constexpr const char* phone = "7832";
constexpr const char* newcomer = "1";

bool watchesForKids(const User& user) {
    for (const Progress& progress : user.history) {
        const Video* const video = catalogue().video(progress.houseNumber);
        if (video != nullptr && video->show->channel == "vantic-kids") return true;
    }
    return false;
}

Reply segments(const Request& request, const Users& users) {
    if (headerValue(request, "x-api-key").value_or("").empty()) return failure(403, "No API key");
    if (bearerToken(request).value_or("").empty()) return failure(401, "No access token");
    const JSON body = JSON::parse(request.body, nullptr, false);
    if (!body.is_object() || !body.contains("sub_profile_id") || !body["sub_profile_id"].is_string()) {
        return failure(400, "The body has no subprofile");
    }
    const auto uid = body["sub_profile_id"].get<std::string>();
    JSON audiences{everybody};
    JSON badges{phone};
    bool isKnown = false;
    users.look(uid, [&](const User& user) {
        isKnown = true;
        if (watchesForKids(user)) audiences.push_back(kidsFans);
    });
    if (!isKnown) badges.push_back(newcomer);
    Reply reply;
    reply.body = JSON{{"user_id", uid}, {"active_audiences", audiences}, {"active_badges", badges}};
    return reply;
}

}  // namespace

std::vector<Route> segmentRoutes(const Users& users) {
    return {{"POST", "api/v1/gigya/segments",
             [&users](const Request& request, const Captures&) { return segments(request, users); }}};
}

}  // namespace VanticRestKit::sample
