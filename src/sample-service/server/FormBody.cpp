#include "server/FormBody.h"

#include "server/Exchange.h"

namespace VanticRestKit::sample {

// A form is encoded like a query, except for spaces.
std::optional<std::string> formField(std::string_view body, std::string_view name) {
    std::string query(body);
    for (char& c : query) {
        if (c == '+') c = ' ';
    }
    Request read;
    readTarget("/?" + query, read);
    for (const auto& item : read.query) {
        if (item.name == name) return item.value;
    }
    return std::nullopt;
}

}  // namespace VanticRestKit::sample
