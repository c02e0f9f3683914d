#pragma once

/// \file
/// Checks date readers against the test vectors.

#include <gtest/gtest.h>
#include <VanticRestKit/platform/date/Date.h>

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "support/TemporaryZone.h"
#include "support/Vectors.h"

namespace VanticRestKit::test {

inline Date seconds(double count) { return Date(std::chrono::duration<double>(count)); }

/// Checks `read` against every line of `file`, each in the zone that it names. Lines for which any result is accepted
/// are read too, and must only not crash.
inline void expectDatesOf(const std::string& file,
                          const std::function<std::optional<Date>(std::string_view)>& read) {
    std::size_t held = 0;
    for (const auto& line : vectors(file)) {
        const auto& question = line.at("in");
        const TemporaryZone zone(question.value("zone", "America/St_Johns"));
        const auto text = question.at("text").get<std::string>();
        const std::optional<Date> date = read(text);
        if (isFree(line)) continue;
        ++held;
        std::optional<Date> wanted;
        if (!line.at("out").is_null()) wanted = seconds(line.at("out").get<double>());
        EXPECT_EQ(date, wanted) << line << (date ? " was read as a date" : " was not read as a date");
    }
    EXPECT_GT(held, 100u);
}

}  // namespace VanticRestKit::test
