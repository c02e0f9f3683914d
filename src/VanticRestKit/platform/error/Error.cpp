#include <VanticRestKit/platform/error/Error.h>

#include <utility>

namespace VanticRestKit {

std::string composedErrorDescription(std::string_view domain, std::int64_t code) {
    std::string sentence = "The operation couldn\u2019t be completed. (";
    sentence += domain;
    sentence += " error ";
    sentence += std::to_string(code);
    sentence += ".)";
    return sentence;
}

std::string detail::describedError(const Dictionary& userInfo, std::string_view domain, std::int64_t code) {
    const auto entry = userInfo.find(NSLocalizedDescriptionKey);
    if (entry != userInfo.end()) {
        if (const std::string* text = entry->second.text()) return *text;
    }
    return composedErrorDescription(domain, code);
}

Dictionary Error::userInfo() const { return box_->userInfo(); }

std::string Error::localizedDescription() const {
    if (box_->describesItself()) return box_->description();
    return detail::describedError(userInfo(), domain(), code());
}

std::optional<Error> Error::underlyingError() const { return box_->underlying(); }

std::optional<ErrorCategory> Error::errorCategory() const { return box_->category(); }

const void* Error::valueTagged(const ErrorTag& tag) const noexcept {
    return &box_->tag() == &tag ? box_->value() : nullptr;
}

}  // namespace VanticRestKit
