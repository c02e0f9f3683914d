#include <VanticRestKit/trelvo/Common/Auth.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

namespace {

bool secondsSince1970(double seconds, Date& date) {
    date = Date(Date::duration(seconds));
    return true;
}

}  // namespace

template <>
const TypePlan& planOf<Auth>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Auth>(
        required<&Auth::accessToken>("access_token"),
        required<&Auth::refreshToken>("refresh_token"),
        required<&Auth::tokenType>("token_type"),
        required<&Auth::expiry, secondsSince1970>("expiry"));
    // clang-format on
    return plan;
}

}  // namespace VanticRestKit
