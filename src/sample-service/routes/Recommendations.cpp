#include <algorithm>
#include <set>

#include "catalogue/Catalogue.h"
#include "routes/UserTable.h"

namespace VanticRestKit::sample {

namespace {

/// The parameters of a request.
struct Wanted {
    std::size_t limit = 0;
    std::string userId;
    std::string context;
    std::set<std::string> excludes;
    std::set<std::string> includes;
};

std::set<std::string> texts(const JSON& json, const char* key) {
    std::set<std::string> result;
    if (!json.contains(key) || !json[key].is_array()) return result;
    for (const auto& text : json[key]) {
        if (text.is_string()) result.insert(text.get<std::string>());
    }
    return result;
}

std::optional<Wanted> readWanted(const std::string& body) {
    const JSON json = JSON::parse(body, nullptr, false);
    if (!json.is_object() || !json.contains("limit") || !json["limit"].is_number_unsigned())
        return std::nullopt;
    Wanted wanted;
    wanted.limit = json["limit"].get<std::size_t>();
    // The user is signed in as a subprofile of the account.
    for (const char* key : {"accountid", "userid", "subprofileid"}) {
        if (json.contains(key) && json[key].is_string()) wanted.userId = json[key].get<std::string>();
    }
    if (json.contains("context") && json["context"].is_string())
        wanted.context = json["context"].get<std::string>();
    if (json.contains("contentfilter")) {
        wanted.excludes = texts(json["contentfilter"], "excludes");
        wanted.includes = texts(json["contentfilter"], "includes");
    }
    return wanted;
}

/// The URI of a programme contains its id, that of a film the house number of its only video.
std::string uriOf(const Show& show) {
    if (!show.series.empty()) return "lumeno://program/" + std::to_string(show.id);
    return "lumeno://video/" + catalogue().videosOf(show).front()->houseNumber;
}

/// Items of the catalogue and some of other sources, best match first.
std::vector<std::string> candidates(const Wanted& wanted, const std::set<std::int64_t>& watched) {
    std::vector<const Show*> shows = catalogue().programmes();
    const auto context = std::find_if(shows.begin(), shows.end(),
                                      [&](const Show* show) { return uriOf(*show) == wanted.context; });
    const std::string category = context == shows.end() ? "" : (*context)->category;
    const auto rank = [&](const Show* show) {
        return (watched.count(show->id) > 0 ? 2 : 0) + (show->category == category ? 0 : 1);
    };
    // Shows are elements of one list, so comparing addresses gives the catalogue's order.
    std::sort(shows.begin(), shows.end(),
              [&](const Show* a, const Show* b) { return rank(a) != rank(b) ? rank(a) < rank(b) : a < b; });
    std::vector<std::string> uris;
    for (const Show* show : shows) uris.push_back(uriOf(*show));
    uris.insert(uris.begin() + std::min<std::ptrdiff_t>(3, std::ssize(uris)),
                "coremedia://audioepisode/5501");
    uris.push_back("coremedia://recipe/barley-soup");
    return uris;
}

Reply recommend(const Request& request, const std::string& module, const Users& users) {
    if (queryValue(request, "apikey").value_or("").empty()) return failure(403, "No API key");
    const auto wanted = readWanted(request.body);
    if (!wanted) return failure(400, "The body has no limit");
    std::set<std::int64_t> watched;
    users.look(wanted->userId, [&](const User& user) {
        for (const Progress& progress : user.history) watched.insert(progress.showId);
    });
    JSON items = JSON::array();
    for (const std::string& uri : candidates(*wanted, watched)) {
        if (items.size() >= wanted->limit) break;
        if (uri == wanted->context || wanted->excludes.count(uri) > 0) continue;
        if (!wanted->includes.empty() && wanted->includes.count(uri) == 0) continue;
        items.push_back({{"rid", uri}, {"recipeid", "recipe-" + module}});
    }
    Reply reply;
    reply.body = JSON{{"moduleid", module},
                      {"variantid", watched.empty() ? "newcomer" : "by-history"},
                      {"label", watched.empty() ? "Popular now" : "More for you"},
                      {"recommendations", std::move(items)}};
    return reply;
}

}  // namespace

std::vector<Route> recommendationRoutes(const Users& users) {
    std::vector<Route> routes;
    for (const char* method : {"POST", "PUT"}) {
        routes.push_back({method, "api/v2/recommendations/{module}",
                          [&users](const Request& request, const Captures& captures) {
                              return recommend(request, captures[0], users);
                          }});
    }
    return routes;
}

}  // namespace VanticRestKit::sample
