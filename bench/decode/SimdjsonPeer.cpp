#include "Parsers.h"
#include "PeerVideo.h"

#include <simdjson.h>

#include <memory>

namespace VanticRestKit::bench {

namespace {

namespace ondemand = simdjson::ondemand;

class SimdjsonValue {
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

private:
    ondemand::value value_;
};

}  // namespace

Peer simdjsonPeer() {
    // The parser is used again, as its authors recommend.
    auto parser = std::make_shared<ondemand::parser>();
    const auto decode = [parser](const Data& document) {
        static_assert(Data::padding >= simdjson::SIMDJSON_PADDING);
        ondemand::document parsed;
        ondemand::value root;
        const simdjson::padded_string_view bytes(document.data(), document.size(),
                                                 document.size() + Data::padding);
        if (parser->iterate(bytes).get(parsed) != simdjson::SUCCESS) return VideoList{};
        if (parsed.get_value().get(root) != simdjson::SUCCESS) return VideoList{};
        return videoListOf(SimdjsonValue(root));
    };
    return {"simdjson, on demand", decode, 1};
}

}  // namespace VanticRestKit::bench
