#include <VanticRestKit/platform/http/cookies/detail/PublicSuffix.h>

#include <libpsl.h>

namespace VanticRestKit::detail {

// `psl_builtin` returns a constant of libpsl. It is null if libpsl was built without a list; then every domain counts
// as a suffix, and cookies are host-only.

bool isPublicSuffix(const std::string& domain) {
    return psl_is_public_suffix(psl_builtin(), domain.c_str()) != 0;
}

std::string registrableDomain(const std::string& host) {
    // A pointer into `host`.
    const char* const domain = psl_registrable_domain(psl_builtin(), host.c_str());
    return domain == nullptr ? host : std::string(domain);
}

}  // namespace VanticRestKit::detail
