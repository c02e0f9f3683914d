#pragma once

/// \file
/// The rules of a list of shows that is empty if one of them fails.

#include <platform/json/FieldRules.h>
#include <VanticRestKit/lumeno/Show/Show.h>

namespace VanticRestKit::test {

inline const Show& emptyShow() {
    static const Show& show = *new Show{.theme = Theme::default_};
    return show;
}

inline Shape showList() {
    return listOf("[]",
                  {{R"([{"_entity":"SHOW","title":"$"},{},{"id":"1","title":2}])",
                    "[" + valueText(Show{.title = "$", .theme = Theme::default_}) + "," +
                        valueText(emptyShow()) + "," + valueText(emptyShow()) + "]"},
                   {"[]", "[]"}},
                  {R"({"_entity":"video"})"});
}

}  // namespace VanticRestKit::test
