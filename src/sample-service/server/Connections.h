#pragma once

#include <chrono>

namespace VanticRestKit::sample {

/// Access to the sockets below the HTTP server, for faults that a well-behaved server never causes.
class Connections {
public:
    explicit Connections(int localPort);
    Connections(const Connections&) = delete;
    Connections& operator=(const Connections&) = delete;
    ~Connections();

    /// Waits until the peer closes the connection, the service stops, or the time has elapsed. Returns true if the time
    /// has elapsed, and false if no answer is needed any more.
    bool wait(int peerPort, std::chrono::duration<double> time) const;

    /// Waits until the peer has closed the connection or the service stops.
    void waitForEnd(int peerPort) const;

    /// Resets the connection at once: the peer sees RST. Anything written to it afterwards is discarded.
    void reset(int peerPort) const;

    /// Ends all waits, and each connection once the answer in progress is written.
    void stop() const;

private:
    int socketOf(int peerPort) const;
    bool pollUntil(int peerPort, int milliseconds) const;

    int localPort_;
    int stopping_;  // an eventfd, permanently readable after stop()
};

}  // namespace VanticRestKit::sample
