#pragma once

/// \file
/// `Admission`: decides which transfers may start now, and which wait for a connection to their origin.

#include <VanticRestKit/platform/http/detail/IdleDeadlines.h>
#include <VanticRestKit/platform/http/detail/NameLookups.h>

#include <cstddef>
#include <deque>
#include <limits>
#include <list>
#include <memory>
#include <string>
#include <unordered_map>

namespace VanticRestKit::detail {

class Admission;

/// How many transfers an origin accepts at once on one connection.
enum class Carriage { unknown, one, many };

/// What `Admission` queues: one transfer to one origin.
class Applicant {
public:
    /// Whether it is waiting in the queue.
    bool isWaiting() const noexcept { return state_ == State::waiting; }

private:
    friend class Admission;
    struct OriginQueue;
    enum class State { outside, waiting, admitted, setAside };

    State state_ = State::outside;
    OriginQueue* queue_ = nullptr;
    std::list<Applicant*>::iterator place_{};
    NameLookups::Ticket lookup_;
};

/// A first-in, first-out queue for each origin. Does not own the applicants. For one thread.
///
/// The capacity of an origin is its maximum number of connections or, once it is known to multiplex, the usual number
/// of streams on one connection. All origins together are limited to `maxAdmitted`, because the cost of a round in
/// libcurl grows with its number of transfers. Origins take turns, so that a long queue does not delay other origins.
/// Transfers to an origin whose name must be looked up also wait while `maxLookups` names are being looked up.
class Admission {
public:
    /// Enough for forty origins with six connections each, but few enough to keep a round cheap.
    static constexpr std::size_t defaultMaxAdmitted = 256;

    explicit Admission(std::size_t connectionsPerHost, std::size_t maxAdmitted = defaultMaxAdmitted,
                       std::size_t maxLookups = std::numeric_limits<std::size_t>::max());
    ~Admission();
    Admission(const Admission&) = delete;
    Admission& operator=(const Admission&) = delete;

    /// Appends `applicant` to the queue of `origin`.
    void enqueue(Applicant& applicant, const std::string& origin);

    /// The length of the queue of `origin`.
    std::size_t waitingFor(const std::string& origin) const;

    /// Admits the next applicant that may start at `now`; null if there is none. It counts against the capacity until
    /// `leave`.
    Applicant* admitNext(TimePoint now = {});

    /// An admitted `applicant` has its connection and no longer needs a name lookup.
    void endLookup(Applicant& applicant);
    /// The address of the applicant's origin was found, and is known until `until`.
    void learnAddress(Applicant& applicant, TimePoint until);

    /// Whether the address of the applicant's origin is known at `now`.
    bool knowsAddress(const Applicant& applicant, TimePoint now) const;
    /// The address of the applicant's origin, or of all origins, may have changed.
    void forgetAddress(const Applicant& applicant);
    void forgetAddresses();

    /// Removes a waiting or admitted `applicant`; has no effect on any other.
    void leave(Applicant& applicant);

    /// The origin of an admitted `applicant` turned out to have this `carriage`.
    void learn(Applicant& applicant, Carriage carriage);
    /// The origin of an admitted `applicant` refuses concurrent transfers; from now on its capacity is its maximum
    /// number of connections.
    void narrow(Applicant& applicant);
    /// The number of origins that are in use or were used recently.
    std::size_t originCount() const noexcept { return queues_.size(); }

    /// What is known about the origin of `applicant`.
    Carriage carriage(const Applicant& applicant) const;

    /// Stops counting an admitted `applicant` because no other may use its connection, or counts it again. While any is
    /// set aside, the capacity of its origin is its maximum number of connections.
    void setAside(Applicant& applicant, bool aside);
    /// Whether any applicant of the same origin is set aside.
    bool hasSetAside(const Applicant& applicant) const;

private:
    using OriginQueue = Applicant::OriginQueue;

    std::size_t capacity(const OriginQueue& queue) const;
    void markReady(OriginQueue& queue);
    OriginQueue* nextQueue();
    void prune();

    const std::size_t connectionsPerHost_;
    const std::size_t maxAdmitted_;
    // How many were admitted and have not left, including those set aside.
    std::size_t admitted_ = 0;
    std::size_t pruneAt_;
    std::unordered_map<std::string, std::unique_ptr<OriginQueue>> queues_;
    // The queues whose first applicant may be admitted.
    std::deque<OriginQueue*> ready_;
    // The queues whose first applicant waits for a free name lookup.
    std::deque<OriginQueue*> awaitingLookup_;
    NameLookups lookups_;
};

}  // namespace VanticRestKit::detail
