#pragma once

/// \file
/// A document with every key that a type reads, as input for random changes. It is derived from the type's plan, so it
/// does not test the keys.

#include <VanticRestKit/platform/json/PlanDeclaration.h>

#include <string>

namespace VanticRestKit::test {

/// Decodes into the type.
std::string sampleDocument(const TypePlan& plan);

}  // namespace VanticRestKit::test
