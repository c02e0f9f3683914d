#include <VanticRestKit/Testing/detail/TextDistance.h>

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

namespace VanticRestKit::Testing::detail {

std::size_t textDistance(std::string_view a, std::string_view b) {
    constexpr std::size_t most = 300;
    a = a.substr(0, most);
    b = b.substr(0, most);
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = std::exchange(row[0], i + 1);
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t replaced = diagonal + (a[i] == b[j] ? 0 : 1);
            diagonal = std::exchange(row[j + 1], std::min({row[j + 1] + 1, row[j] + 1, replaced}));
        }
    }
    return row.back();
}

}  // namespace VanticRestKit::Testing::detail
