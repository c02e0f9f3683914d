#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/kavro/KAVRORoutes.h>
#include <VanticRestKit/kavro/KAVROSegmentsContext.h>
#include <VanticRestKit/kavro/KAVROSegmentsModel.h>
#include <VanticRestKit/recs/RecommendationModule.h>
#include <VanticRestKit/recs/RecsContext.h>
#include <VanticRestKit/recs/RecsRoutes.h>

#include "arguments/Values.h"
#include "operations/Operation.h"

// The services other than the catalogue. A host creates their routes and contexts itself.
namespace vantic {

using namespace VanticRestKit;

namespace {

class SegmentsHost final : public Host, public KAVROSegmentsContext {
public:
    SegmentsHost(const Host& host, const Arguments& given)
        : Host(host), apiKey_(given.text("apiKey")), accessToken_(given.text("accessToken")) {}

    std::string apiKey() const override { return apiKey_; }
    std::string accessToken() const override { return accessToken_; }
    /// The headers of the host and those of the service.
    std::map<std::string, std::string> HTTPHeaderFields() const override {
        std::map<std::string, std::string> headers = Host::HTTPHeaderFields();
        headers.merge(KAVROSegmentsContext::HTTPHeaderFields());
        return headers;
    }

private:
    std::string apiKey_;
    std::string accessToken_;
};

class RecsHost final : public Host, public RecsContext {
public:
    RecsHost(const Host& host, const Arguments& given) : Host(host), apiKey_(given.text("apiKey")) {}

    std::string apiKey() const override { return apiKey_; }

private:
    std::string apiKey_;
};

std::optional<Loadable> callSegments(const Arguments& given, const Host& host) {
    const KAVROSegmentsURI route({.withSubprofileID = given.text("withSubprofileID")});
    return loadable(Resource<KAVROSegmentsModel>::make({.with = route}, SegmentsHost(host, given)));
}

std::vector<RecsModuleContext> contents(const Arguments& given, std::string_view name) {
    std::vector<RecsModuleContext> contents;
    for (const std::string& text : given.texts(name)) contents.push_back(readContent(name, text));
    return contents;
}

std::optional<Loadable> callRecommendations(const Arguments& given, const Host& host) {
    const RecsModuleURI route({.withModuleId = given.text("withModuleId"),
                               .userId = given.optionalText("userId"),
                               .accountId = given.optionalText("accountId"),
                               .subprofileId = given.optionalText("subprofileId"),
                               .limit = readInteger("limit", given.text("limit")),
                               .httpMethod = given.text("httpMethod"),
                               .exclude = contents(given, "exclude"),
                               .include = contents(given, "include"),
                               .andModuleContext = given.optionally("andModuleContext", readContent)});
    return loadable(Resource<RecommendationModule>::make({.with = route}, RecsHost(host, given)));
}

}  // namespace

std::vector<Operation> serviceOperations() {
    return {
        {"KAVROSegments",
         "the audience segments of a profile",
         {required("withSubprofileID", "ID", "the id of the profile"),
          required("apiKey", "KEY", "the key of the application"),
          required("accessToken", "TOKEN", "the access token of the user")},
         callSegments},
        {"RecsModule",
         "a module of recommendations",
         {required("withModuleId", "ID", "the id of the module"),
          optional("userId", "ID", "the id of the user"),
          optional("accountId", "ID", "the id of the account"),
          optional("subprofileId", "ID", "the id of the profile"),
          required("limit", "N", "the maximum number of recommendations"),
          required("httpMethod", "METHOD", "the method of the request"),
          repeated("exclude", "CONTENT", "source://type/id of content to exclude"),
          repeated("include", "CONTENT", "source://type/id of content to choose from"),
          optional("andModuleContext", "CONTENT", "source://type/id of the displayed content"),
          required("apiKey", "KEY", "the key of the application")},
         callRecommendations},
    };
}

}  // namespace vantic
