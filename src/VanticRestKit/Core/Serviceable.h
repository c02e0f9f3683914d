#pragma once

/// \file
/// `Serviceable`: something that can run one request.

#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/dispatch/UniqueFunction.h>
#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/publisher/AnyPublisher.h>
#include <VanticRestKit/platform/result/Result.h>
#include <VanticRestKit/Visibility.h>

namespace VanticRestKit {

/// Runs one request that is already prepared, any number of times. A host may put its own behind a `Loader`.
class VRK_EXPORT Serviceable {
public:
    /// Receives the body of the answer, or why there is none.
    using Completion = UniqueFunction<void(Result<Data, Error>)>;

    struct FetchArguments {
        Required<Completion> with;
    };

    virtual ~Serviceable() = default;

    /// Runs the request once and calls the completion once with its outcome, on a queue of the implementer's
    /// choice. A `Loader` calls this on its own queue and decodes on the queue of the completion.
    virtual void fetch(FetchArguments arguments) = 0;

    /// A publisher of the one body, or of the error in its place. Each subscription runs the request anew.
    virtual AnyPublisher<Data> fetch() = 0;

protected:
    Serviceable() = default;
    Serviceable(const Serviceable&) = default;
    Serviceable& operator=(const Serviceable&) = default;
};

}  // namespace VanticRestKit
