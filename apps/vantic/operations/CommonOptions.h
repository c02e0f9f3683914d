#pragma once

#include <VanticRestKit/platform/url/URL.h>

#include <map>
#include <optional>
#include <span>
#include <string>

#include "arguments/Arguments.h"

namespace vantic {

/// The options of every operation.
struct CommonOptions {
    VanticRestKit::URL baseURL;
    /// By exact name. If a name is given several times, the last value is used.
    std::map<std::string, std::string> headers;
    /// In seconds.
    std::optional<double> timeout;
    /// The file with the trusted certificates.
    std::optional<std::string> authorityFile;
    bool isVerbose;
    /// The folder of the disk cache, which keeps responses between runs.
    std::optional<std::string> cacheFolder{};
    /// Whether cached responses are revalidated even if they are fresh.
    bool revalidates = false;
    /// Whether the response to each request is reported on standard error.
    bool isTraced = false;

    static std::span<const Option> options();
    static CommonOptions read(const Arguments& arguments);
};

}  // namespace vantic
