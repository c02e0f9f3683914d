#include <VanticRestKit/platform/error/NSError.h>

#include <utility>

namespace VanticRestKit {

NSError::NSError(std::string domain, std::int64_t code) : NSError(std::move(domain), code, {}) {}

NSError::NSError(std::string domain, std::int64_t code, Dictionary userInfo)
    : domain_(std::move(domain)), code_(code), userInfo_(std::move(userInfo)) {}

NSError::NSError(const Error& error) : NSError(error.domain(), error.code(), error.userInfo()) {
    description_ = error.localizedDescription();
}

std::string NSError::errorDomain() const { return domain_; }

Dictionary NSError::errorUserInfo() const { return userInfo_; }

std::string NSError::generalDescription() const { return localizedDescription(); }

std::string NSError::localizedDescription() const {
    return description_ ? *description_ : detail::describedError(userInfo_, domain_, code_);
}

std::optional<Error> NSError::underlyingError() const { return userInfo_.error(NSUnderlyingErrorKey); }

const ErrorTag& NSError::errorTag() {
    static const ErrorTag tag;
    return tag;
}

}  // namespace VanticRestKit
