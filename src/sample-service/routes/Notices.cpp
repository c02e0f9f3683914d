#include "catalogue/Tables.h"
#include "routes/Table.h"

namespace VanticRestKit::sample {

namespace {

bool isMeant(const std::string& condition, const std::string& value) {
    return condition.empty() || condition == value;
}

JSON noticeJSON(const Notice& notice) {
    JSON json{{"id", notice.id},
              {"title", notice.title},
              {"count", notice.count},
              {"interval", notice.interval},
              {"message", notice.message}};
    json["links"] = JSON::array();
    if (!notice.linkHref.empty()) json["links"].push_back({{"title", "Go there"}, {"href", notice.linkHref}});
    return json;
}

Reply messages(const Request& request, const Captures&) {
    JSON list = JSON::array();
    for (const Notice& notice : notices()) {
        if (isMeant(notice.appId, request.queryValue("appId")) &&
            isMeant(notice.authStatus, request.queryValue("authStatus"))) {
            list.push_back(noticeJSON(notice));
        }
    }
    return answered(std::move(list));
}

Reply alert(const Request&, const Captures& captures) {
    const Alert* found = rowOf(alerts(), captures[0]);
    if (found == nullptr) return failure(404, "No alert has the id " + captures[0]);
    JSON json{{"id", found->id}, {"title", found->title}, {"message", found->message}};
    if (!found->status.empty()) json["status"] = found->status;
    if (!found->linkTitle.empty()) json["link"] = {{"title", found->linkTitle}, {"href", found->linkHref}};
    return answered(std::move(json));
}

}  // namespace

std::vector<Route> noticeRoutes() {
    return {
        {"GET", "v2/messages", messages},
        {"GET", "v2/alert/{id}", alert},
    };
}

}  // namespace VanticRestKit::sample
