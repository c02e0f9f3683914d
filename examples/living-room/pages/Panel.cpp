// The panel that breaks things: chooses a fault of the sample service, and shows how the host coped with the answers.

#include "Pages.h"

namespace living_room {
namespace {

/// The fault in effect, which a POST changes. The request has no context and so no observer: the panel does not list
/// its own requests.
Resource<Dictionary> faultOfService(const Service& service, const char* method, const std::string& query) {
    const URL address = service.baseURL().appendingPathComponent("control/fault");
    URLRequest request(URL::make(address.absoluteString() + query).value(),
                       URLRequestCachePolicy::reloadIgnoringLocalCacheData);
    request.setHTTPMethod(method);
    return Resource<Dictionary>({.withURLRequest = request, .andDecoder = JSONDecoder()});
}

}  // namespace

Task<Answer> panelPart(Visit visit) {
    const auto fault = co_await faultOfService(visit.service, "GET", "").value(visit.options());
    Value values = visit.user->log->lists();
    if (fault) values["fault"] = fault->text("name");
    co_return partAnswer("panel-lists", std::move(values));
}

Task<Answer> setFault(Visit visit) {
    const std::string query = "?name=" + visit.field("name");
    const auto fault = co_await faultOfService(visit.service, "POST", query).value(visit.options());
    if (!fault) co_return failedPart(fault.error());
    // Cached answers from before would hide the fault.
    visit.service.cache().removeAllCachedResponses();
    visit.user->log->clear();
    co_return partAnswer("", {});
}

}  // namespace living_room
