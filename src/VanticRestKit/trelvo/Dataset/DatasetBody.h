#pragma once

/// \file
/// A free-form dataset as JSON, and as the body of a request.

#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/error/AnyValue.h>
#include <VanticRestKit/platform/json/JSONEncoder.h>
#include <VanticRestKit/Visibility.h>

#include <optional>

namespace VanticRestKit {

/// Writes each value of the dataset under its key. Texts, whole numbers, truth values and numbers with a
/// fraction travel; anything else is left out.
VRK_EXPORT void encodeDataset(const Dictionary& dataset, JSONObjectWriter& writer);

/// "dataset=" and the dataset as a percent-encoded JSON object. Empty where a number is not finite or a text
/// is not UTF-8.
VRK_EXPORT std::optional<Data> datasetBody(const Dictionary& dataset);

}  // namespace VanticRestKit
