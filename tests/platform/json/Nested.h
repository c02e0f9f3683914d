#pragma once

/// \file
/// Types that hold themselves, for documents of any depth.

#include <VanticRestKit/platform/json/PlanOf.h>

#include <vector>

namespace VanticRestKit::test {

/// An object that holds objects like it under "inside"; each level of it is two of the document.
struct Nest {
    std::vector<Nest> inside{};
};

}  // namespace VanticRestKit::test

namespace VanticRestKit {
template <>
const TypePlan& planOf<test::Nest>();
}  // namespace VanticRestKit
