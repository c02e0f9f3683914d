#pragma once

/// \file
/// `Context`: the host's configuration of a service.

#include <VanticRestKit/Core/NetworkError.h>
#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/http/URLRequest.h>
#include <VanticRestKit/platform/url/URL.h>
#include <VanticRestKit/platform/url/URLQueryItem.h>
#include <VanticRestKit/Visibility.h>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

class ObservableContext;
class Serviceable;

/// Specifies where a service is and how requests to it are built. The host implements it; only `baseURL` is required.
/// Inherit it virtually (`class MyContext : public virtual Context`), so that one object can be the context of several
/// services.
///
/// The library reads a context only during the call that receives it, on the thread of that call, and keeps no
/// reference to it. All members are called through this interface, so an override takes effect everywhere.
class VRK_EXPORT Context {
public:
    /// The argument of `service`.
    struct ServiceArguments {
        /// The request to send.
        Required<URLRequest> withURLRequest;
    };
    /// The arguments of `generateURLRequest`.
    struct URLRequestArguments {
        /// The path below the base URL.
        Required<std::string> usingPath;
        /// The query items, in order.
        Required<std::vector<URLQueryItem>> queryItems;
        /// Headers that take precedence over the context's own.
        Required<std::map<std::string, std::string>> additionalHTTPHeaders;
        /// The method; empty for GET.
        Required<std::optional<std::string>> httpMethod;
        /// In seconds. Empty means the context's own `requestTimeout`.
        Required<std::optional<double>> timeout;
        /// The body; empty for none.
        Required<std::optional<Data>> andPostData;
    };

    virtual ~Context();

    /// The address that all paths are relative to. Its query items, if any, come first in every request.
    virtual URL baseURL() const = 0;

    /// Headers of every request. None by default. Names are compared exactly here; the request merges names that differ
    /// only in case.
    virtual std::map<std::string, std::string> HTTPHeaderFields() const;

    /// The idle timeout of a request, in seconds. 30 by default.
    virtual double requestTimeout() const;

    /// Called with failures of requests. Empty by default.
    virtual LogError logError() const;

    /// Makes the service that runs `withURLRequest`; never null. By default a new `NetworkServiceble` on the shared
    /// session with this context's `logError`.
    virtual std::shared_ptr<Serviceable> service(ServiceArguments arguments) const;

    /// The request for a path below `baseURL`. Empty if the parts do not form a URL.
    ///
    /// By default the headers are `additionalHTTPHeaders` and this context's `HTTPHeaderFields`; the former take
    /// precedence.
    virtual std::optional<URLRequest> generateURLRequest(URLRequestArguments arguments) const;

    /// This context as an `ObservableContext`; null if its requests are not observed. Hosts do not override this but
    /// inherit `ObservableContext`. A context that decorates another one returns what that one returns.
    virtual const ObservableContext* asObservable() const noexcept { return nullptr; }

protected:
    Context() = default;
    Context(const Context&) = default;
    Context& operator=(const Context&) = default;
};

}  // namespace VanticRestKit
