#include "Parsers.h"
#include "PeerHome.h"

#include <simdjson.h>

namespace VanticRestKit::bench {

namespace {

namespace ondemand = simdjson::ondemand;

class SimdjsonValue : public PeerValue {
public:
    explicit SimdjsonValue(ondemand::value value) : value_(value) {}

    bool text(std::string_view& text) { return value_.get_string().get(text) == simdjson::SUCCESS; }
    bool number(std::uint64_t& number) { return value_.get_uint64().get(number) == simdjson::SUCCESS; }
    bool truth(bool& truth) { return value_.get_bool().get(truth) == simdjson::SUCCESS; }

    template <class F>
    bool members(F f) {
        ondemand::object object;
        if (value_.get_object().get(object) != simdjson::SUCCESS) return false;
        for (auto member : object) {
            std::string_view key;
            ondemand::value value;
            if (member.unescaped_key().get(key) != simdjson::SUCCESS) return false;
            if (member.value().get(value) != simdjson::SUCCESS) return false;
            f(key, SimdjsonValue(value));
        }
        return true;
    }

    template <class F>
    bool elements(F f) {
        ondemand::array array;
        if (value_.get_array().get(array) != simdjson::SUCCESS) return false;
        for (auto element : array) {
            ondemand::value value;
            if (element.get(value) != simdjson::SUCCESS) return false;
            f(SimdjsonValue(value));
        }
        return true;
    }

    /// Afterwards the value can be read again from its start.
    std::string_view entity() {
        ondemand::object object;
        std::string_view name;
        if (value_.get_object().get(object) != simdjson::SUCCESS) return {};
        if (object.find_field("_entity").get_string().get(name) != simdjson::SUCCESS) name = {};
        static_cast<void>(object.reset());
        return name;
    }

private:
    ondemand::value value_;
};

template <class T>
T decoded(const Data& document) {
    // Reused, as its authors recommend.
    static ondemand::parser parser;
    static_assert(Data::padding >= simdjson::SIMDJSON_PADDING);
    ondemand::document parsed;
    ondemand::value root;
    const simdjson::padded_string_view bytes(document.data(), document.size(),
                                             document.size() + Data::padding);
    if (parser.iterate(bytes).get(parsed) != simdjson::SUCCESS) return T{};
    if (parsed.get_value().get(root) != simdjson::SUCCESS) return T{};
    return valueOf<T>(SimdjsonValue(root));
}

}  // namespace

Peer simdjsonPeer() {
    return {"simdjson, on demand", 1, decoded<VideoList>, decoded<Category>, decoded<ShowsIndex>};
}

}  // namespace VanticRestKit::bench
