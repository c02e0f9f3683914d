#pragma once

/// \file
/// `RequestObserver`: receives records of requests and decoding, for logs and statistics in production.

#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/dispatch/SharedFunction.h>
#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/http/LoadProgress.h>
#include <VanticRestKit/platform/http/RequestMetrics.h>
#include <VanticRestKit/platform/json/Diagnosis.h>
#include <VanticRestKit/Visibility.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace VanticRestKit {

namespace detail {
class ToleranceSampler;
}  // namespace detail

/// What an observer receives. By default it receives nothing that may contain a token, and no document is explained.
struct ObserverOptions {
    /// Whether URLs are complete. If not, query values, user, password and fragment are replaced by "redacted", and
    /// errors omit descriptions that may quote a URL.
    bool revealsAddresses = false;
    /// Whether a decoding failure includes the body, and errors that may quote it.
    bool includesBodies = false;

    /// The fraction of decoded documents that are explained, from 0 to 1.
    double explainedShare = 0;
    /// The maximum size in bytes of all documents explained in one minute; a document that exceeds the rest is skipped.
    std::uint64_t explainedBytesPerMinute = 4 * 1024 * 1024;

    /// For tests: returns a number in [0, 1) that decides whether a document is explained. Called on any thread. Empty:
    /// random.
    SharedFunction<double()> random{};
    /// For tests: the clock for that minute. Called on one thread at a time. Empty: the steady clock.
    SharedFunction<std::chrono::steady_clock::time_point()> now{};
};

/// A body that could not be decoded.
struct DecodingFailure {
    /// The address of the request, redacted as the options say.
    std::string url{};
    /// The requested type, such as "Video" or "[Show]".
    std::string typeName{};
    /// The error. A `DecodingError` gives the location in the document. An error of another type may quote the body, so
    /// it is reduced to its domain and code unless the observer asks for bodies.
    Error error;
    /// In bytes.
    std::uint64_t bodySize = 0;
    /// Only present if the observer asks for it. Distinguishes a captive portal from a changed service.
    std::optional<Data> body{};
};

/// A decoded document and the faults in it that were tolerated.
struct ExplainedDocument {
    /// The address of the request, redacted as the options say.
    std::string url{};
    /// The name of the requested type.
    std::string typeName{};
    /// In bytes.
    std::uint64_t bodySize = 0;
    /// In decode order; empty if the document had none. A fault may quote the type that an object claims to be.
    std::vector<Fault> faults{};
};

/// A load that waits for its session, or that continues.
struct LoadStateChange {
    /// The address of the request, redacted as the options say.
    std::string url{};
    /// `state` is what it waits for now, and `queueLength` the number of loads that wait with it.
    LoadProgress progress{};
};

/// Receives records of the loads of the contexts that provide it. A host overrides the members that it needs; later
/// versions may add members, which do nothing by default.
///
/// Called on the delegate queues of the sessions, like completions: by several threads at once if there are several
/// sessions, and never inside the call that starts a load, unless the host's own service answers there. A slow member
/// delays completions. Members must not throw. The library keeps an observer alive while a resource, a load or an
/// explanation refers to it.
class VRK_EXPORT RequestObserver {
public:
    virtual ~RequestObserver();
    RequestObserver(const RequestObserver&) = delete;
    RequestObserver& operator=(const RequestObserver&) = delete;

    /// A request has ended. Called before the completion of the load, once for each request that was sent; see
    /// `RequestMetrics`. A request that was ended by the deadline of a load counts as cancelled.
    ///
    /// If the host's own service or transport makes no records, there is one for each answer, without phases,
    /// connection, bytes on the wire and the status of a success, and none for a cancelled request.
    virtual void requestEnded(const RequestMetrics& metrics);

    /// A body could not be decoded. Called before the completion of the load.
    virtual void decodingFailed(const DecodingFailure& failure);

    /// A document was selected by `explainedShare` and explained. Called on a background queue, some time after the
    /// load.
    virtual void documentExplained(const ExplainedDocument& document);

    /// A load waits for a connection, or its body is not read because completions are too slow, or it continues after
    /// that. Not called for loads that never wait, and not for publishers. A slow completion delays this call like any
    /// other: for a body that is held back it comes between two completions.
    virtual void loadStateChanged(const LoadStateChange& change);

    /// The operation of `Trelvo` with this name was called inside a completion and is about to wait for a token that
    /// only the same queue can deliver: it never returns, and no further completion of the session is called. Called at
    /// most once per process, on the thread that is about to wait. In a debug build of the library an assertion fails
    /// next.
    virtual void operationWillNeverReturn(std::string_view operation);

    /// The options that the observer was made with.
    const ObserverOptions& options() const noexcept { return options_; }
    /// For the library: explains documents; null if `explainedShare` is zero.
    const std::shared_ptr<detail::ToleranceSampler>& sampler() const noexcept { return sampler_; }

protected:
    /// The options apply for the lifetime of the observer.
    explicit RequestObserver(ObserverOptions options = {});

private:
    const ObserverOptions options_;
    const std::shared_ptr<detail::ToleranceSampler> sampler_;
};

}  // namespace VanticRestKit
