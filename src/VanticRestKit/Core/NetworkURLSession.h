#pragma once

/// \file
/// `NetworkURLSession`: the default shared session.

#include <VanticRestKit/platform/dispatch/OperationQueue.h>
#include <VanticRestKit/platform/http/URLSessionConfiguration.h>
#include <VanticRestKit/Visibility.h>

#include <memory>

namespace VanticRestKit {

class URLSession;

/// A session and its configuration.
struct VRK_EXPORT NetworkURLSession {
    /// The session of all requests that specify no other.
    std::shared_ptr<URLSession> urlSesion{};
    /// The default configuration, with the protocol cache policy and an idle timeout of 30 seconds.
    URLSessionConfiguration sessionURLConfig{};
    /// Named "dev.vantic.NetworkSesionQueue". It is unused: completions are delivered on the session's own serial
    /// queue.
    OperationQueue sessionQueue{};

    /// The shared instance, made on first use and never destroyed. Any thread.
    static const NetworkURLSession& sharedInstance();
};

}  // namespace VanticRestKit
