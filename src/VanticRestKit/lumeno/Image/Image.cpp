#include <VanticRestKit/lumeno/Image/Image.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<Image>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Image>(
        lenient<&Image::id, decimalOrText>("id"),
        lenient<&Image::url>("url"),
        lenient<&Image::accessibilityText>("accessibilityText"),
        lenient<&Image::type>("type"),
        lenient<&Image::tags>("tags"),
        lenient<&Image::aspectRatio>("aspectRatio"),
        lenient<&Image::width>("width"),
        lenient<&Image::height>("height"),
        lenient<&Image::altText>("altText"));
    // clang-format on
    return plan;
}

template <>
const TypePlan& planOf<Banner>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Banner>(
        required<&Banner::largeImageHref>("large"),
        required<&Banner::smallImageHref>("small"),
        optional<&Banner::altText>("altText"),
        required<&Banner::linkHref>("link"));
    // clang-format on
    return plan;
}

}  // namespace VanticRestKit
