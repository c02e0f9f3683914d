#pragma once

/// \file
/// `RequestObserver`: is told what requests and decoding came to, for the logs and statistics of a host in production.

#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/dispatch/SharedFunction.h>
#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/http/RequestMetrics.h>
#include <VanticRestKit/platform/json/Diagnosis.h>
#include <VanticRestKit/Visibility.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

namespace detail {
class ToleranceSampler;
}  // namespace detail

/// What an observer asks for. By default it gets nothing that may hold a token, and nothing is explained.
struct ObserverOptions {
    /// Whether addresses come whole. If not, the values of their query, their user and password and their fragment are
    /// replaced by "redacted", and errors come without the texts that may quote an address.
    bool revealsAddresses = false;
    /// Whether a failure to decode comes with the body, and with errors that may quote it.
    bool includesBodies = false;

    /// The share of the decoded documents that are explained, from 0 to 1.
    double explainedShare = 0;
    /// How many bytes of documents are explained in a minute; a document that exceeds what is left is skipped.
    std::uint64_t explainedBytesPerMinute = 4 * 1024 * 1024;

    /// For tests: a number from 0 up to, but not, 1, which decides whether a document is explained. Called on any
    /// thread. Empty: random.
    SharedFunction<double()> random{};
    /// For tests: the time by which minutes are counted. Called on one thread at a time. Empty: the steady clock.
    SharedFunction<std::chrono::steady_clock::time_point()> now{};
};

/// A body that could not be decoded.
struct DecodingFailure {
    /// The address of the request, redacted as the options say.
    std::string url{};
    /// The type that was asked for, such as "Video" or "[Show]".
    std::string typeName{};
    /// Why. A `DecodingError` names the place in the document. An error of another type may quote the body: then it is
    /// reduced to its domain and code, unless the observer asks for bodies.
    Error error;
    /// In bytes.
    std::uint64_t bodySize = 0;
    /// Only if the observer asks for it. It tells the sign-in page of a network from a service that has changed.
    std::optional<Data> body{};
};

/// A document that was decoded, and what its mapping tables swallowed on the way.
struct ExplainedDocument {
    /// The address of the request, redacted as the options say.
    std::string url{};
    /// The name of the type that the body was to become.
    std::string typeName{};
    /// In bytes.
    std::uint64_t bodySize = 0;
    /// In decode order; empty if the document was as its tables want it. A fault may name the kind that an object
    /// claims to be, as the document gives it.
    std::vector<Fault> faults{};
};

/// Receives what happens to the loads of the contexts that hand it out. A host overrides what it wants to know; later
/// versions may add members, which do nothing unless they are overridden.
///
/// Called where the completions of loads are, on the delegate queues of the sessions: by several threads at once if there
/// are several sessions, and never inside the call that starts a load, unless the host's own service answers there. A
/// member that takes long holds up completions. None may throw. The library keeps an observer as long as a resource, a
/// load or an explanation reports to it.
class VRK_EXPORT RequestObserver {
public:
    virtual ~RequestObserver();
    RequestObserver(const RequestObserver&) = delete;
    RequestObserver& operator=(const RequestObserver&) = delete;

    /// A request has ended. Comes before the completion of the load, once for each request that was sent; see
    /// `RequestMetrics`. A request that a load ended at its deadline is one that was cancelled.
    ///
    /// A service or transport of the host's own that makes no records has one for each answer, without the phases, the
    /// connection, what was on the wire and the status of a success, and none for a request that is cancelled.
    virtual void requestEnded(const RequestMetrics& metrics);

    /// A body was not what was asked for. Comes before the completion of the load.
    virtual void decodingFailed(const DecodingFailure& failure);

    /// A document was chosen by `explainedShare` and explained. Called on a background queue, some time after the load.
    virtual void documentExplained(const ExplainedDocument& document);

    /// What the observer was made with.
    const ObserverOptions& options() const noexcept { return options_; }
    /// What explains documents, for the library; null unless the options ask for a share.
    const std::shared_ptr<detail::ToleranceSampler>& sampler() const noexcept { return sampler_; }

protected:
    /// The options count for the life of the observer.
    explicit RequestObserver(ObserverOptions options = {});

private:
    const ObserverOptions options_;
    const std::shared_ptr<detail::ToleranceSampler> sampler_;
};

}  // namespace VanticRestKit
