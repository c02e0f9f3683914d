#pragma once

#include <chrono>

namespace VanticRestKit::sample {

/// Reaches below the HTTP server to the sockets of one listening port, for what a well-behaved server never does.
class Connections {
public:
    explicit Connections(int localPort);
    Connections(const Connections&) = delete;
    Connections& operator=(const Connections&) = delete;
    ~Connections();

    /// Waits until the peer has left, the service stops, or the time is over.
    /// True when the time is over, false when there is nobody left to answer.
    bool wait(int peerPort, std::chrono::duration<double> time) const;

    /// Waits until the peer has left or the service stops.
    void waitForEnd(int peerPort) const;

    /// Resets the connection at once: the peer sees RST. What is written to it afterwards goes nowhere.
    void reset(int peerPort) const;

    /// Ends every wait, and every connection as soon as the answer that is being written is out.
    void stop() const;

private:
    int socketOf(int peerPort) const;
    bool pollUntil(int peerPort, int milliseconds) const;

    int localPort_;
    int stopping_;  // an eventfd, readable for good once stop() was called
};

}  // namespace VanticRestKit::sample
