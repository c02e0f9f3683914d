// The panel that breaks things: chooses what is wrong with the sample service, and shows what became of its answers.

#include "Pages.h"

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

namespace {

/// On no one's behalf, so that the panel does not show what it asks for itself.
Resource<ChosenFault> faultControl(const Service& service, const char* method, const std::string& query) {
    URLRequest request(service.baseURL().appendingPathComponent("control/fault"),
                       URLRequestCachePolicy::reloadIgnoringLocalCacheData);
    if (!query.empty()) request.setURL(URL::make(request.url()->absoluteString() + query));
    request.setHTTPMethod(method);
    return Resource<ChosenFault>({.withURLRequest = request, .andDecoder = JSONDecoder()});
}

Task<Answer> lists(Visit visit) {
    const auto control = faultControl(visit.service, "GET", "");
    const auto chosen = co_await control.value(visit.options());
    const RequestLog& log = visit.user->log();
    const Value values = Value::Object{
        {"fault", chosen ? chosen->name : ""}, {"swallowed", log.swallowed()}, {"requests", log.requests()}};
    co_return partAnswer("panel-lists", values);
}

Task<Answer> setFault(Visit visit) {
    const auto control =
        faultControl(visit.service, "POST", "?name=" + percentEncoded(visit.request.posted("name")));
    const auto chosen = co_await control.value(visit.options());
    if (!chosen) co_return failedPart(chosen.error());
    // Answers from before the fault would hide it.
    visit.service.cache().removeAllCachedResponses();
    visit.user->log().clear();
    co_return partAnswer("", {});
}

constexpr Route routes[] = {{"GET", "/panel", lists}, {"POST", "/fault", setFault}};

}  // namespace

const std::span<const Route> panelRoutes(routes);

}  // namespace living_room
