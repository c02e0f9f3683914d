#pragma once

/// \file
/// The tables of docs/errors.md.

#include <cstdint>
#include <fstream>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

namespace VanticRestKit::test {

using Cells = std::vector<std::string>;

/// The rows of the table in docs/errors.md whose first column has the heading `heading`, without backquotes.
inline std::vector<Cells> tableOf(const std::string& heading) {
    std::ifstream file(VRK_DOCS "/errors.md");
    std::vector<Cells> rows;
    bool isInside = false;
    for (std::string line; std::getline(file, line);) {
        std::erase(line, '`');
        if (line.starts_with("| " + heading + " |")) isInside = true;
        if (!line.starts_with("|")) isInside = false;
        if (!isInside || line.starts_with("|---") || line.starts_with("| " + heading + " |")) continue;
        Cells cells;
        std::istringstream text(line.substr(1));
        for (std::string cell; std::getline(text, cell, '|');) {
            const auto first = cell.find_first_not_of(' ');
            cells.push_back(first == std::string::npos
                                ? std::string()
                                : cell.substr(first, cell.find_last_not_of(' ') - first + 1));
        }
        rows.push_back(cells);
    }
    return rows;
}

/// A row about an error, or about a range of codes.
struct Row {
    std::string key;
    std::string name;
    std::string category;
    bool mayTryAgain = false;

    friend void PrintTo(const Row& row, std::ostream* out) { *out << row.key; }
};

/// The rows of a table whose last columns are the category and whether a retry may help.
inline std::vector<Row> rowsOf(const std::string& heading) {
    std::vector<Row> rows;
    for (const Cells& cells : tableOf(heading)) {
        rows.push_back({.key = cells.front(),
                        .name = cells.size() == 4 ? cells[1] : std::string(),
                        .category = cells[cells.size() - 2],
                        .mayTryAgain = cells.back() == "yes"});
    }
    return rows;
}

/// Whether the key of a row, such as "404", "400 to 499" or "any other", includes `code`.
inline bool includes(const Row& row, std::int64_t code) {
    if (row.key == "any other") return true;
    const auto to = row.key.find(" to ");
    const std::int64_t first = std::stoll(row.key);
    return first <= code && code <= (to == std::string::npos ? first : std::stoll(row.key.substr(to + 4)));
}

}  // namespace VanticRestKit::test
