#include "Parsers.h"
#include "PeerVideo.h"

#include <rapidjson/document.h>

namespace VanticRestKit::bench {

namespace {

class RapidJSONValue {
public:
    explicit RapidJSONValue(const rapidjson::Value& value) : value_(&value) {}

    bool text(std::string_view& text) {
        if (!value_->IsString()) return false;
        text = {value_->GetString(), value_->GetStringLength()};
        return true;
    }
    bool number(std::uint64_t& number) {
        if (!value_->IsUint64()) return false;
        number = value_->GetUint64();
        return true;
    }
    bool truth(bool& truth) {
        if (!value_->IsBool()) return false;
        truth = value_->GetBool();
        return true;
    }

    template <class F>
    bool members(F f) {
        if (!value_->IsObject()) return false;
        for (const auto& member : value_->GetObject()) {
            f(std::string_view(member.name.GetString(), member.name.GetStringLength()),
              RapidJSONValue(member.value));
        }
        return true;
    }

    template <class F>
    bool elements(F f) {
        if (!value_->IsArray()) return false;
        for (const auto& element : value_->GetArray()) f(RapidJSONValue(element));
        return true;
    }

private:
    const rapidjson::Value* value_;
};

}  // namespace

Peer rapidjsonPeer() {
    const auto decode = [](const Data& document) {
        rapidjson::Document parsed;
        parsed.Parse(document.data(), document.size());
        return videoListOf(RapidJSONValue(parsed));
    };
    return {"RapidJSON", decode, 4};
}

}  // namespace VanticRestKit::bench
