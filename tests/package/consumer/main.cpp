// A host outside the project, which uses only what was installed.

#include <VanticRestKit/platform/async/StdFuture.h>
#include <VanticRestKit/platform/async/Task.h>
#include <VanticRestKit/VanticRestKit.h>

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <future>
#include <memory>
#include <string>
#include <vector>

using namespace VanticRestKit;

// A host's own type with a mapping table like those of the library.
struct Snack {
    std::string name{};
    std::uint64_t price{};
};

template <>
const TypePlan& VanticRestKit::planOf<Snack>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Snack>(
        required<&Snack::name>("name"),
        lenient<&Snack::price>("price"));
    // clang-format on
    return plan;
}

namespace {

// An address without a server, so that a load fails with a transport error.
class Nowhere : public virtual Context {
public:
    URL baseURL() const override { return *URL::make("http://127.0.0.1:1"); }
};

bool decodesAnEntity() {
    const auto video =
        JSONDecoder().decode<Video>(Data(R"({"title":"A","_links":{"self":{"href":"/video/1"}}})"));
    return video && video->title == "A" && video->selfHref == "/video/1";
}

bool reportsWhyADocumentDoesNotDecode() {
    const auto video = JSONDecoder().decode<Video>(Data("{}"));
    return !video && video.error().as<DecodingError>() != nullptr;
}

bool decodesItsOwnType() {
    const auto snacks =
        JSONDecoder().decode<std::vector<Snack>>(Data(R"([{"name":"rusk","price":3},{"name":"fig"}])"));
    return snacks && snacks->size() == 2 && snacks->front().price == 3 && snacks->back().price == 0;
}

bool reportsAFailedLoad() {
    const auto resource = Endpoint::Video({.houseNumber = "X1"}, Nowhere());
    if (!resource) return false;
    const auto code = std::make_shared<std::promise<std::int64_t>>();
    auto outcome = code->get_future();
    resource->load({.with = [code](Result<Video, LoaderError> result) {
        const auto* error = result ? nullptr : result.error().underlyingError()->as<NetworkError>();
        code->set_value(error != nullptr ? error->errorCode() : 0);
    }});
    return outcome.wait_for(std::chrono::seconds(30)) == std::future_status::ready && outcome.get() == -1004;
}

bool waitsForAStdFuture() {
    const auto resource = Endpoint::Video({.houseNumber = "X1"}, Nowhere());
    if (!resource) return false;
    const Result<Video, LoaderError> outcome = toStdFuture(resource->future()).get();
    return !outcome && outcome.error().underlyingError();
}

int check(const char* what, bool holds) {
    std::printf("%s: %s\n", what, holds ? "yes" : "no");
    return holds ? 0 : 1;
}

}  // namespace

int main() {
    return check("decodes an entity", decodesAnEntity()) +
           check("reports why a document does not decode", reportsWhyADocumentDoesNotDecode()) +
           check("decodes its own type", decodesItsOwnType()) +
           check("reports a failed load", reportsAFailedLoad()) +
           check("waits for a std::future", waitsForAStdFuture());
}
