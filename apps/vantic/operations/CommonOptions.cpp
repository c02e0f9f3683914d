#include "operations/CommonOptions.h"

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

}  // namespace

std::span<const Option> CommonOptions::options() {
    static constexpr Option options[] = {required("base-url"), repeated("header"), optional("timeout"),
                                         optional("ca"),       flag("verbose"),    optional("cache"),
                                         flag("revalidate"),   flag("trace")};
    return options;
}

CommonOptions CommonOptions::read(const Arguments& arguments) {
    const std::string address = arguments.text("base-url");
    std::optional<VanticRestKit::URL> baseURL = VanticRestKit::URL::make(address);
    if (!baseURL) throw UsageError{"--base-url is no URL: " + address};
    CommonOptions common{.baseURL = *std::move(baseURL),
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
