#pragma once

/// \file
/// `PrivateNetwork`: a private network for a test program.

#include <functional>
#include <string>

namespace VanticRestKit::test {

/// A network namespace for the whole program, with a loopback interface and 127.0.0.1 as the name server in
/// /etc/resolv.conf. No packet leaves it. It must be entered before the program has other threads or sockets, which
/// would stay outside.
///
/// It can be connected to a second network, "far", by a pair of interfaces named "near" and "far".
class PrivateNetwork {
public:
    /// Enters it, once per program. Returns why this machine does not allow it, empty on success.
    static std::string enter();

    /// Runs `ip` with these arguments. Returns whether it succeeded.
    static bool ip(const std::string& arguments);

    /// Connects the second network, once per program. "near" has the addresses 10.9.0.1 and fd09::1, "far" 10.9.0.2 and
    /// fd09::2. Returns whether it succeeded.
    static bool connectFarNetwork();

    /// Runs `action` in the far network. Sockets and threads created by it stay there.
    static void inFarNetwork(const std::function<void()>& action);
};

}  // namespace VanticRestKit::test
