#include "operations/HrefOperation.h"

#include <VanticRestKit/lumeno/Link/LinkEndpoints.h>

#include "Failure.h"
#include "types/Decoding.h"

namespace vantic {

namespace {

/// A response of any type: the bytes of a well-formed document.
struct Document {
    VanticRestKit::Data json{};
};

}  // namespace
}  // namespace vantic

template <>
const VanticRestKit::TypePlan& VanticRestKit::planOf<vantic::Document>() {
    static const TypePlan& plan = mapping::makeVerbatimPlan(
        "Document",
        [](std::string_view json, void* value) { static_cast<vantic::Document*>(value)->json = Data(json); });
    return plan;
}

namespace vantic {

using namespace VanticRestKit;

std::optional<Loadable> callResource(const Arguments& given, const Host& host) {
    auto resource = Endpoint::Resource<Document>({.withHref = given.text("withHref")}, host);
    if (!resource) return std::nullopt;
    return [resource = *std::move(resource), as = given.optionalText("as")](LoadCompletion completion) {
        if (!as) throw UsageError{"Resource needs --as for the type to decode"};
        const auto text = [&type = typeNamed(*as)](const Document& document) -> LoadedText {
            auto decoded = decode(type, document.json, ValueLayout::indented);
            if (decoded) return *std::move(decoded);
            return Failure(LoaderError::failedToDecode(decoded.error().error));
        };
        load(resource, text, std::move(completion));
    };
}

}  // namespace vantic
