#include <VanticRestKit/platform/error/Error.h>

#include <utility>

namespace VanticRestKit {

namespace {

std::string described(const Dictionary& userInfo, std::string_view domain, std::int64_t code) {
    const auto entry = userInfo.find(NSLocalizedDescriptionKey);
    if (entry != userInfo.end()) {
        if (const std::string* text = entry->second.text()) return *text;
    }
    return composedErrorDescription(domain, code);
}

}  // namespace

std::string composedErrorDescription(std::string_view domain, std::int64_t code) {
    std::string sentence = "The operation couldn\u2019t be completed. (";
    sentence += domain;
    sentence += " error ";
    sentence += std::to_string(code);
    sentence += ".)";
    return sentence;
}

Dictionary Error::userInfo() const { return box_->userInfo(); }

std::string Error::localizedDescription() const {
    if (box_->describesItself()) return box_->description();
    return described(userInfo(), domain(), code());
}

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
    return description_ ? *description_ : described(userInfo_, domain_, code_);
}

const ErrorTag& NSError::errorTag() {
    static const ErrorTag tag;
    return tag;
}

}  // namespace VanticRestKit
