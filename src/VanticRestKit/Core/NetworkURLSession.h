#pragma once

/// \file
/// `NetworkURLSession`: the session that all requests share by default.

#include <VanticRestKit/platform/dispatch/OperationQueue.h>
#include <VanticRestKit/platform/http/URLSessionConfiguration.h>
#include <VanticRestKit/Visibility.h>

#include <memory>

namespace VanticRestKit {

class URLSession;

/// A session with the configuration that it was made from.
struct VRK_EXPORT NetworkURLSession {
    /// The session that requests use where they are given no other.
    std::shared_ptr<URLSession> urlSesion{};
    /// The default configuration with the protocol's cache policy and 30 seconds for a request.
    URLSessionConfiguration sessionURLConfig{};
    /// Named "dev.vantic.NetworkSesionQueue". It stays idle: the session is not given it, so completions
    /// arrive on the session's private serial queue.
    OperationQueue sessionQueue{};

    /// The one shared instance, made on first use; it lives as long as the process. Any thread.
    static const NetworkURLSession& sharedInstance();
};

}  // namespace VanticRestKit
