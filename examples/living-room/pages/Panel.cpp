// The panel that breaks things: chooses what is wrong with the sample service, and shows what became of its answers.

#include "Parts.h"

#include <VanticRestKit/platform/http/URLRequest.h>
#include <VanticRestKit/platform/json/PlanOf.h>
#include <VanticRestKit/platform/json/Table.h>

namespace living_room {

/// What the sample service says of its fault.
struct ChosenFault {
    std::string name{};
};

}  // namespace living_room

template <>
const VanticRestKit::TypePlan& VanticRestKit::planOf<living_room::ChosenFault>() {
    static const TypePlan& plan =
        mapping::object<living_room::ChosenFault>(mapping::required<&living_room::ChosenFault::name>("name"));
    return plan;
}

namespace living_room {

using namespace VanticRestKit;

namespace {

/// On no one's behalf, so that the panel does not show what it asks for itself.
Resource<ChosenFault> faultControl(const Service& service, const char* method, const std::string& query) {
    URLRequest request(service.baseURL().appendingPathComponent("control/fault"),
                       URLRequestCachePolicy::reloadIgnoringLocalCacheData);
    if (!query.empty()) request.setURL(URL::make(request.url()->absoluteString() + query));
    request.setHTTPMethod(method);
    return Resource<ChosenFault>({.withURLRequest = request, .andDecoder = JSONDecoder()});
}

Html requestMarkup(const LoggedRequest& request) {
    return html(
        R"(<li data-source="{}"><b>{}</b> <span>{}</span> <span data-status>{}</span> <span>{} ms</span>)"
        R"( <span>{}</span></li>)",
        request.source, request.method, request.target, request.outcome, request.milliseconds,
        request.source);
}

}  // namespace

Task<Answer> panelLists(Visit visit) {
    const auto control = faultControl(visit.service, "GET", "");
    const auto chosen = co_await control.value(visit.options());
    std::vector<Html> swallowed;
    for (const std::string& line : visit.user->log().swallowed())
        swallowed.push_back(html("<li>{}</li>", line));
    std::vector<Html> requests;
    for (const LoggedRequest& request : visit.user->log().requests())
        requests.push_back(requestMarkup(request));
    co_return blockAnswer(
        html(R"(<h3 data-current-fault="{}">What decoding swallowed</h3><ul data-list="swallowed">{}</ul>)"
             R"(<h3>Requests, the newest first</h3><ul data-list="requests">{}</ul>)",
             chosen ? chosen->name : "", swallowed, requests));
}

Task<Answer> setFault(Visit visit) {
    const auto control =
        faultControl(visit.service, "POST", "?name=" + percentEncoded(visit.request.posted("name")));
    const auto chosen = co_await control.value(visit.options());
    if (!chosen) co_return failedBlock(LoaderError(chosen.error()));
    // Answers from before the fault would hide it.
    visit.service.cache().removeAllCachedResponses();
    visit.user->log().clear();
    co_return seeOther("/");
}

}  // namespace living_room
