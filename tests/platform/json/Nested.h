#pragma once

/// \file
/// A recursive type, for documents of any depth.

#include <VanticRestKit/platform/json/PlanOf.h>

#include <vector>

namespace VanticRestKit::test {

/// An object with a list of such objects under "inside". Each level of it is two levels of the document.
struct Nest {
    std::vector<Nest> inside{};
};

}  // namespace VanticRestKit::test

namespace VanticRestKit {
template <>
const TypePlan& planOf<test::Nest>();
}  // namespace VanticRestKit
