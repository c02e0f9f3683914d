#pragma once

/// \file
/// `PrivateNetwork`: a network of a test program's own.

#include <functional>
#include <string>

namespace VanticRestKit::test {

/// A network namespace with a loopback, which the whole program enters, with a name server at 127.0.0.1 in its
/// /etc/resolv.conf. No packet leaves it. To be entered before the program has another thread or a socket, which would
/// stay outside.
///
/// A cable can be laid from there to a second network, "far"; its ends are the interfaces "near" and "far".
class PrivateNetwork {
public:
    /// Enters it, once for the program. Returns why this machine does not allow it; empty if it did.
    static std::string enter();

    /// Runs the program ip with these arguments. Returns whether it succeeded.
    static bool ip(const std::string& arguments);

    /// Lays the cable, once for the program. "near" has the addresses 10.9.0.1 and fd09::1, "far" 10.9.0.2 and fd09::2.
    /// Returns whether it succeeded.
    static bool layCable();

    /// Runs `action` in the far network. Sockets and threads that it makes stay there.
    static void inFarNetwork(const std::function<void()>& action);
};

}  // namespace VanticRestKit::test
