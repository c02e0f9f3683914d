#pragma once

#include <VanticRestKit/platform/url/URL.h>

#include <map>
#include <optional>
#include <span>
#include <string>

#include "arguments/Arguments.h"

namespace vantic {

/// What every operation takes beside its own options.
struct CommonOptions {
    VanticRestKit::URL baseURL;
    /// By exact name; of one name given several times the last value counts.
    std::map<std::string, std::string> headers;
    /// In seconds.
    std::optional<double> timeout;
    /// The file with the certificates to be trusted.
    std::optional<std::string> authorityFile;
    bool isVerbose;
    /// The folder in which answers are kept from one run to the next.
    std::optional<std::string> cacheFolder{};
    /// Whether the server is asked about what is kept, also if that is fresh.
    bool revalidates = false;
    /// Whether each request's answer is reported on standard error.
    bool isTraced = false;

    static std::span<const Option> options();
    static CommonOptions read(const Arguments& arguments);
};

}  // namespace vantic
