#include <platform/json/BothEngines.h>

namespace VanticRestKit::test {

Outcome outcomeOf(const DecodableType& type, std::string_view json) {
    Outcome outcome = decodeByBoth(type, Data(json));
    EXPECT_EQ(outcome.difference, "") << json;
    return outcome;
}

}  // namespace VanticRestKit::test
