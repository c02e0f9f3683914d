#include <VanticRestKit/recs/RecsRoutes.h>

#include <utility>

namespace VanticRestKit {

namespace {

std::vector<std::string> urisOf(const std::vector<RecsModuleContext>& contents) {
    std::vector<std::string> uris;
    for (const RecsModuleContext& content : contents) uris.push_back(content.recContextURI());
    return uris;
}

}  // namespace

RecsModuleURI::RecsModuleURI(Arguments arguments)
    : moduleId(std::move(arguments.withModuleId).value()),
      userId(std::move(arguments.userId).value()),
      accountId(std::move(arguments.accountId).value()),
      subprofileId(std::move(arguments.subprofileId).value()),
      moduleContext(std::move(arguments.andModuleContext).value()),
      limit(arguments.limit.value()),
      excludeFilter(std::move(arguments.exclude).value()),
      includeFilter(std::move(arguments.include).value()),
      httpMethod(std::move(arguments.httpMethod).value()) {}

std::optional<Data> RecsModuleURI::postData() const {
    Result<Data, Error> body = JSONEncoder().encode(*this);
    if (!body) return std::nullopt;
    return std::move(body).value();
}

void RecsModuleURI::encode(JSONObjectWriter& writer) const {
    writer.write("limit", limit);
    writer.writeIfPresent("userid", userId);
    writer.writeIfPresent("accountid", accountId);
    writer.writeIfPresent("subprofileid", subprofileId);
    if (moduleContext) writer.write("context", moduleContext->recContextURI());
    if (excludeFilter.empty() && includeFilter.empty()) return;
    writer.object("contentfilter", [this](JSONObjectWriter& filter) {
        if (!excludeFilter.empty()) filter.write("excludes", urisOf(excludeFilter));
        if (!includeFilter.empty()) filter.write("includes", urisOf(includeFilter));
    });
}

}  // namespace VanticRestKit
