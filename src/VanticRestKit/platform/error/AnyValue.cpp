#include <VanticRestKit/platform/error/AnyValue.h>

#include <utility>

namespace VanticRestKit {

AnyValue::AnyValue() : value_(Other{}) {}
AnyValue::AnyValue(std::string text) : value_(std::move(text)) {}
AnyValue::AnyValue(std::string_view text) : value_(std::string(text)) {}
AnyValue::AnyValue(const char* text) : value_(std::string(text)) {}
AnyValue::AnyValue(Error error) : value_(std::move(error)) {}
AnyValue::AnyValue(Other other) : value_(std::move(other)) {}

AnyValue::AnyValue(const AnyValue& other) = default;
AnyValue::AnyValue(AnyValue&& other) noexcept = default;
AnyValue& AnyValue::operator=(const AnyValue& other) = default;
AnyValue& AnyValue::operator=(AnyValue&& other) noexcept = default;
AnyValue::~AnyValue() = default;

AnyValue AnyValue::ofTruth(bool truth) {
    AnyValue made;
    made.value_ = truth;
    return made;
}

AnyValue AnyValue::ofInteger(std::int64_t number) {
    AnyValue made;
    made.value_ = number;
    return made;
}

AnyValue AnyValue::ofUnsigned(std::uint64_t number) {
    if (std::in_range<std::int64_t>(number)) return ofInteger(static_cast<std::int64_t>(number));
    return Other{std::to_string(number)};
}

AnyValue AnyValue::ofNumber(double number) {
    AnyValue made;
    made.value_ = number;
    return made;
}

const std::string* AnyValue::text() const noexcept { return std::get_if<std::string>(&value_); }
const std::int64_t* AnyValue::integer() const noexcept { return std::get_if<std::int64_t>(&value_); }
const bool* AnyValue::boolean() const noexcept { return std::get_if<bool>(&value_); }
const double* AnyValue::number() const noexcept { return std::get_if<double>(&value_); }
const Error* AnyValue::error() const noexcept { return std::get_if<Error>(&value_); }
const AnyValue::Other* AnyValue::other() const noexcept { return std::get_if<Other>(&value_); }

bool operator==(const AnyValue& a, const AnyValue& b) { return a.value_ == b.value_; }

namespace {

template <class T>
std::optional<T> read(const Dictionary& values, std::string_view key,
                      const T* (AnyValue::*kind)() const noexcept) {
    const auto found = values.find(key);
    if (found == values.end()) return std::nullopt;
    const T* const value = (found->second.*kind)();
    return value != nullptr ? std::optional<T>(*value) : std::nullopt;
}

}  // namespace

std::optional<std::string> Dictionary::text(std::string_view key) const {
    return read(*this, key, &AnyValue::text);
}

std::optional<std::int64_t> Dictionary::integer(std::string_view key) const {
    return read(*this, key, &AnyValue::integer);
}

std::optional<bool> Dictionary::boolean(std::string_view key) const {
    return read(*this, key, &AnyValue::boolean);
}

std::optional<double> Dictionary::number(std::string_view key) const {
    return read(*this, key, &AnyValue::number);
}

std::optional<Error> Dictionary::error(std::string_view key) const {
    return read(*this, key, &AnyValue::error);
}

}  // namespace VanticRestKit
