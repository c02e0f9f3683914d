#pragma once

/// \file
/// `datasetBody`: a free-form dataset as the body of a request.

#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/error/AnyValue.h>
#include <VanticRestKit/Visibility.h>

#include <optional>

namespace VanticRestKit {

/// "dataset=" and the dataset as a percent-encoded JSON object. Texts, whole numbers, truth values and numbers with
/// a fraction travel; anything else is left out. Empty where a number is not finite or a text is not UTF-8.
VRK_EXPORT std::optional<Data> datasetBody(const Dictionary& dataset);

}  // namespace VanticRestKit
