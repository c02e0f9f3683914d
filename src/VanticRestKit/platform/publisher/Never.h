#pragma once

/// \file
/// `Never`, a type without values.

namespace VanticRestKit {

/// The error type of what never fails. No value of it can be made.
struct Never {
    Never() = delete;
};

}  // namespace VanticRestKit
