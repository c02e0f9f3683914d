// A mapping table with the mistake selected by CASE.
#include <VanticRestKit/platform/json/Table.h>

#include <optional>
#include <string>

using namespace VanticRestKit;

namespace {

struct Song {
    std::string title{};
    std::optional<std::string> artist{};
    std::optional<std::string> label{};
    std::vector<std::optional<std::string>> notes{};
#if CASE == 5
    std::optional<std::optional<std::string>> doubted{};
#endif
};

}  // namespace

template <>
const TypePlan& VanticRestKit::planOf<Song>() {
    using namespace mapping;
    static const TypePlan& plan = object<Song>(
#if CASE == 4
        unread("0"), unread("1"), unread("2"), unread("3"), unread("4"), unread("5"), unread("6"),
        unread("7"), unread("8"), unread("9"), unread("10"), unread("11"), unread("12"), unread("13"),
        unread("14"), unread("15"), unread("16"), unread("17"), unread("18"), unread("19"), unread("20"),
        unread("21"), unread("22"), unread("23"), unread("24"), unread("25"), unread("26"), unread("27"),
        unread("28"), unread("29"), unread("30"), unread("31"), unread("32"), unread("33"), unread("34"),
        unread("35"), unread("36"), unread("37"), unread("38"), unread("39"), unread("40"), unread("41"),
        unread("42"), unread("43"), unread("44"), unread("45"), unread("46"), unread("47"), unread("48"),
        unread("49"), unread("50"), unread("51"), unread("52"), unread("53"), unread("54"), unread("55"),
        unread("56"), unread("57"), unread("58"), unread("59"), unread("60"),
#endif
#if CASE == 5
        lenient<&Song::doubted>("doubted"),
#endif
        required<&Song::title>("title"), lenient<&Song::notes>("notes"),
        lenientObject("credits",
#if CASE == 2
                      lenient<&Song::label>("title"),
#endif
                      lenient<&Song::artist>("title"),
                      lenientObject("more",
#if CASE == 3
                                    unread("title"),
#endif
                                    lenient<&Song::label>("title")))
#if CASE == 1
            ,
        lenient<&Song::label>("credits")
#endif
    );
    return plan;
}

int main() { return mapping::planName(planOf<Song>()).empty() ? 1 : 0; }
