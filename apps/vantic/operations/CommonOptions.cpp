#include "operations/CommonOptions.h"

#include <cstdlib>

#include "arguments/Values.h"
#include "Failure.h"

namespace vantic {

namespace {

std::pair<std::string, std::string> readHeader(const std::string& text) {
    const std::size_t colon = text.find(':');
    if (colon == 0 || colon == std::string::npos)
        throw UsageError{"--header takes 'Name: value', not " + text};
    const std::size_t value = text.find_first_not_of(" \t", colon + 1);
    return {text.substr(0, colon), value == std::string::npos ? "" : text.substr(value)};
}

constexpr std::string_view baseURLOption = "base-url";
constexpr const char* baseURLVariable = "VANTIC_BASE_URL";

VanticRestKit::URL readBaseURL(const Arguments& arguments) {
    const char* const variable = std::getenv(baseURLVariable);
    const bool isFromVariable = !arguments.has(baseURLOption) && variable != nullptr && *variable != '\0';
    const std::string address = isFromVariable ? variable : arguments.text(baseURLOption);
    const std::optional<VanticRestKit::URL> url = VanticRestKit::URL::make(address);
    if (!url) {
        const std::string source = isFromVariable ? baseURLVariable : "--" + std::string(baseURLOption);
        throw UsageError{source + " is no URL: " + address};
    }
    return *url;
}

}  // namespace

std::span<const Option> CommonOptions::options() {
    static constexpr Option options[] = {
        required(baseURLOption, "URL",
                 "the address of the service; default: the environment variable VANTIC_BASE_URL"),
        repeated("header", "'NAME: VALUE'", "an additional request header"),
        optional("timeout", "SECONDS", "the idle time-out; default: 30"),
        path(optional("ca", "FILE", "the trusted certificates")),
        flag("verbose", "reports what the failure hook receives on standard error"),
        path(optional("cache", "FOLDER", "caches responses there, for this run and later ones")),
        flag("revalidate", "asks the service whether cached responses have changed"),
        flag("trace", "reports status, source, times, bytes and headers of each response on standard error")};
    return options;
}

CommonOptions CommonOptions::read(const Arguments& arguments) {
    CommonOptions common{.baseURL = readBaseURL(arguments),
                         .headers = {},
                         .timeout = arguments.optionally("timeout", readNumber),
                         .authorityFile = arguments.optionalText("ca"),
                         .isVerbose = arguments.flag("verbose"),
                         .cacheFolder = arguments.optionalText("cache"),
                         .revalidates = arguments.flag("revalidate"),
                         .isTraced = arguments.flag("trace")};
    for (const std::string& text : arguments.texts("header")) {
        auto [name, value] = readHeader(text);
        common.headers.insert_or_assign(std::move(name), std::move(value));
    }
    return common;
}

}  // namespace vantic
