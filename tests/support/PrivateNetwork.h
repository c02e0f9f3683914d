#pragma once

/// \file
/// `PrivateNetwork`: a network of a test program's own.

#include <functional>
#include <string>

namespace VanticRestKit::test {

/// A network namespace with a loopback, into which the whole program goes, with a name server at 127.0.0.1 in its
/// /etc/resolv.conf. No packet leaves it. What a program did before `enter` stays outside, so it is for the beginning
/// of a program that has no other thread yet.
///
/// From there a cable leads to a second network, "far": its ends are the interfaces "near" and "far".
class PrivateNetwork {
public:
    /// Goes there. Why that is not possible on this machine; empty if it was, or if the program is there already.
    static std::string enter();

    /// Runs the program ip with these arguments. Whether it succeeded.
    static bool ip(const std::string& arguments);

    /// Lays the cable. "near" has the addresses 10.9.0.1 and fd09::1, "far" 10.9.0.2 and fd09::2. Whether it
    /// succeeded.
    static bool layCable();

    /// Runs `action` in the far network. Sockets and threads that it makes stay there.
    static void inFarNetwork(const std::function<void()>& action);
};

}  // namespace VanticRestKit::test
