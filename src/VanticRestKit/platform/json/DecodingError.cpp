#include <VanticRestKit/platform/json/DecodingError.h>

#include <utility>

namespace VanticRestKit {

namespace {

constexpr std::int64_t coderReadCorrupt = 4864;
constexpr std::int64_t coderValueNotFound = 4865;

bool isMissing(DecodingError::Kind kind) {
    return kind == DecodingError::Kind::keyNotFound || kind == DecodingError::Kind::valueNotFound;
}

}  // namespace

CodingKey::CodingKey(std::string key) : key_(std::move(key)) {}
CodingKey::CodingKey(const char* key) : key_(key) {}

DecodingError::DecodingError(Kind kind, CodingPath path, std::string debugDescription)
    : kind_(kind), path_(std::move(path)), debugDescription_(std::move(debugDescription)) {}

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
