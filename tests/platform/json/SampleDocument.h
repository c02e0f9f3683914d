#pragma once

/// \file
/// A document with every key that a type reads, to be changed at random. It says nothing of whether the keys are the
/// right ones.

#include <VanticRestKit/platform/json/PlanDeclaration.h>

#include <string>

namespace VanticRestKit::test {

/// Decodes into the type.
std::string sampleDocument(const TypePlan& plan);

}  // namespace VanticRestKit::test
