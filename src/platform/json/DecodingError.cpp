#include <VanticRestKit/platform/json/DecodingError.h>

namespace VanticRestKit {

namespace {

constexpr std::int64_t coderReadCorrupt = 4864;
constexpr std::int64_t coderValueNotFound = 4865;

bool isMissing(DecodingError::Kind kind) {
    return kind == DecodingError::Kind::keyNotFound || kind == DecodingError::Kind::valueNotFound;
}

}  // namespace

const ErrorTag& DecodingError::errorTag() {
    static const ErrorTag tag;
    return tag;
}

std::int64_t DecodingError::errorCode() const {
    return isMissing(kind_) ? coderValueNotFound : coderReadCorrupt;
}

std::string DecodingError::localizedDescription() const {
    return isMissing(kind_) ? "The data couldn\u2019t be read because it is missing."
                            : "The data couldn\u2019t be read because it isn\u2019t in the correct format.";
}

const char* nameOf(DecodingError::Kind kind) noexcept {
    switch (kind) {
        case DecodingError::Kind::keyNotFound: return "keyNotFound";
        case DecodingError::Kind::valueNotFound: return "valueNotFound";
        case DecodingError::Kind::typeMismatch: return "typeMismatch";
        case DecodingError::Kind::dataCorrupted: return "dataCorrupted";
    }
    return "";
}

}  // namespace VanticRestKit
