#include "operations/Sending.h"

#include <VanticRestKit/Core/NetworkError.h>
#include <VanticRestKit/Core/NetworkServiceble.h>
#include <VanticRestKit/Core/NetworkSession.h>
#include <VanticRestKit/platform/error/AnyValue.h>
#include <VanticRestKit/platform/http/URLSession.h>
#include <VanticRestKit/platform/json/ValueText.h>

#include "Output.h"

namespace vantic {

using namespace VanticRestKit;

namespace {

std::string valueText(const AnyValue& value) {
    if (const auto* const text = value.text()) return jsonText(*text);
    if (const auto* const integer = value.integer()) return std::to_string(*integer);
    if (const auto* const truth = value.boolean()) return *truth ? "true" : "false";
    if (const auto* const number = value.number()) return numberText(*number);
    if (const auto* const error = value.error()) return jsonText(error->localizedDescription());
    return jsonText(value.other()->description);
}

// What the failure hook is told: the error's line for a log, and its user information as JSON.
void reportFailure(const Error& error) {
    const auto* const networkError = error.as<NetworkError>();
    std::string line = "logError: ";
    line += networkError != nullptr ? networkError->errorMessage() : error.localizedDescription();
    const char* separator = " {";
    for (const auto& [key, value] : error.userInfo()) {
        line += separator + jsonText(key) + ":" + valueText(value);
        separator = ",";
    }
    report(line + (*separator == ',' ? "}" : ""));
}

}  // namespace

Serve serveOver(const CommonOptions& common) {
    URLSessionConfiguration configuration = URLSessionConfiguration::default_();
    configuration.caBundlePath = common.authorityFile;
    const LogError logError = common.isVerbose ? LogError(reportFailure) : LogError();
    return [session = networkSession(URLSession::make(std::move(configuration))),
            logError](URLRequest request) {
        return NetworkServiceble::make({.with = std::move(request), .and_ = session, .logError = logError});
    };
}

}  // namespace vantic
