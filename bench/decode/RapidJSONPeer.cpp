#include "Parsers.h"
#include "PeerHome.h"

#include <rapidjson/document.h>

namespace VanticRestKit::bench {

namespace {

class RapidJSONValue : public PeerValue {
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

    std::string_view entity() {
        const auto found = value_->FindMember("_entity");
        if (found == value_->MemberEnd()) return {};
        return {found->value.GetString(), found->value.GetStringLength()};
    }

private:
    const rapidjson::Value* value_;
};

template <class T>
T decoded(const Data& document) {
    rapidjson::Document parsed;
    parsed.Parse(document.data(), document.size());
    return valueOf<T>(RapidJSONValue(parsed));
}

}  // namespace

Peer rapidjsonPeer() { return {"RapidJSON", 4, decoded<VideoList>, decoded<Category>, decoded<ShowsIndex>}; }

}  // namespace VanticRestKit::bench
