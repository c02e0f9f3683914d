#include <VanticRestKit/Testing/JSONText.h>

#include <nlohmann/json.hpp>

namespace VanticRestKit::Testing {

namespace {

std::string dumped(const nlohmann::json& json) {
    return json.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

}  // namespace

JSONText::JSONText(std::string_view value) : text_(dumped(std::string(value))) {}

JSONText::JSONText(double value) : text_(dumped(value)) {}

JSONText JSONText::raw(std::string json) {
    JSONText value(nullptr);
    value.text_ = std::move(json);
    return value;
}

}  // namespace VanticRestKit::Testing
