#include "Parsers.h"
#include "PeerHome.h"

#include <nlohmann/json.hpp>

namespace VanticRestKit::bench {

namespace {

class NlohmannValue : public PeerValue {
public:
    explicit NlohmannValue(const nlohmann::json& value) : value_(&value) {}

    bool text(std::string_view& text) {
        if (!value_->is_string()) return false;
        text = value_->get_ref<const std::string&>();
        return true;
    }
    bool number(std::uint64_t& number) {
        if (!value_->is_number_unsigned()) return false;
        number = value_->get<std::uint64_t>();
        return true;
    }
    bool truth(bool& truth) {
        if (!value_->is_boolean()) return false;
        truth = value_->get<bool>();
        return true;
    }

    template <class F>
    bool members(F f) {
        if (!value_->is_object()) return false;
        for (const auto& [key, value] : value_->items()) f(std::string_view(key), NlohmannValue(value));
        return true;
    }

    template <class F>
    bool elements(F f) {
        if (!value_->is_array()) return false;
        for (const auto& element : *value_) f(NlohmannValue(element));
        return true;
    }

    std::string_view entity() {
        const auto found = value_->find("_entity");
        return found == value_->end() ? std::string_view() : found->get_ref<const std::string&>();
    }

private:
    const nlohmann::json* value_;
};

template <class T>
T decoded(const Data& document) {
    const auto parsed =
        nlohmann::json::parse(document.data(), document.data() + document.size(), nullptr, false);
    return valueOf<T>(NlohmannValue(parsed));
}

}  // namespace

Peer nlohmannPeer() {
    return {"nlohmann-json", 10, decoded<VideoList>, decoded<Category>, decoded<ShowsIndex>};
}

}  // namespace VanticRestKit::bench
