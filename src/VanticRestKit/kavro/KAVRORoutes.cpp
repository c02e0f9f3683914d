#include <VanticRestKit/kavro/KAVRORoutes.h>

namespace VanticRestKit {

namespace {

struct KAVROSegmentsPostData {
    std::string subprofileid;

    void encode(JSONObjectWriter& writer) const { writer.write("sub_profile_id", subprofileid); }
};

}  // namespace

std::optional<Data> KAVROSegmentsURI::postData() const {
    Result<Data, Error> body = JSONEncoder().encode(KAVROSegmentsPostData{subprofileid});
    if (!body) return std::nullopt;
    return std::move(body).value();
}

void KAVROSegmentsURI::encode(JSONObjectWriter& writer) const {
    writer.writeIfPresent("httpMethod", httpMethod);
    writer.write("subprofileid", subprofileid);
}

}  // namespace VanticRestKit
