#include "operations/Sending.h"

#include <VanticRestKit/Core/NetworkError.h>
#include <VanticRestKit/Core/NetworkServiceble.h>
#include <VanticRestKit/Core/NetworkSession.h>
#include <VanticRestKit/platform/error/AnyValue.h>
#include <VanticRestKit/platform/http/URLSession.h>
#include <VanticRestKit/platform/json/ValueText.h>

#include "operations/TracedSession.h"
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

// Reports an error of the failure hook: its description for logs, and its user information as JSON.
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

constexpr std::uint64_t diskCapacity = 64 * 1024 * 1024;

std::shared_ptr<URLCache> cacheIn(const std::string& folder) {
    return URLCache::makeOnDisk(
        {.folder = folder, .diskCapacity = diskCapacity, .report = [](const Error& error) {
             report("cache: " + error.localizedDescription());
         }});
}

/// Flushes the disk cache when the last copy of the sending function is destroyed.
struct FlushAtEnd {
    explicit FlushAtEnd(std::shared_ptr<URLCache> held) : cache(std::move(held)) {}
    FlushAtEnd(const FlushAtEnd&) = delete;
    FlushAtEnd& operator=(const FlushAtEnd&) = delete;
    ~FlushAtEnd() {
        if (cache) cache->flush();
    }

    std::shared_ptr<URLCache> cache;
};

}  // namespace

Serve serveOver(const CommonOptions& common) {
    URLSessionConfiguration configuration = URLSessionConfiguration::default_();
    configuration.caBundlePath = common.authorityFile;
    std::shared_ptr<URLCache> cache;
    if (common.cacheFolder) configuration.urlCache = cache = cacheIn(*common.cacheFolder);
    if (common.revalidates) {
        configuration.requestCachePolicy = URLRequestCachePolicy::reloadRevalidatingCacheData;
    }
    const LogError logError = common.isVerbose ? LogError(reportFailure) : LogError();
    std::shared_ptr<NetworkSession> session = networkSession(URLSession::make(std::move(configuration)));
    if (common.isTraced) session = tracedSession(std::move(session));
    return [session = std::move(session), logError,
            flush = std::make_shared<FlushAtEnd>(std::move(cache))](URLRequest request) {
        return NetworkServiceble::make({.with = std::move(request), .and_ = session, .logError = logError});
    };
}

}  // namespace vantic
