#pragma once

/// \file
/// `Admission`: which transfers may go now, and which wait for a connection of their origin.

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

/// How many transfers an origin carries on one connection at a time.
enum class Carriage { unknown, one, many };

/// What `Admission` queues: one transfer on its way to one origin.
class Applicant {
public:
    /// Whether it waits in the queue.
    bool isWaiting() const noexcept { return state_ == State::waiting; }

private:
    friend class Admission;
    struct Line;
    enum class State { outside, waiting, admitted, setAside };

    State state_ = State::outside;
    Line* line_ = nullptr;
    std::list<Applicant*>::iterator place_{};
    NameLookups::Ticket lookup_;
};

/// One line for each origin, first come, first served. Does not own the applicants; for one thread.
///
/// An origin takes as many transfers as it may have connections, or, once it is known to carry several at
/// once on one connection, as many as one connection commonly takes. All origins together take no more than
/// `maxAdmitted`: what libcurl does in a round costs time in proportion to the transfers that it holds. Origins
/// take turns, so that one with a long line does not keep the others waiting. An origin whose name has to be looked up
/// waits as well while `maxLookups` names are.
class Admission {
public:
    /// Enough for forty origins with six connections each, and few enough for a round to stay cheap.
    static constexpr std::size_t defaultMaxAdmitted = 256;

    explicit Admission(std::size_t connectionsPerHost, std::size_t maxAdmitted = defaultMaxAdmitted,
                       std::size_t maxLookups = std::numeric_limits<std::size_t>::max());
    ~Admission();
    Admission(const Admission&) = delete;
    Admission& operator=(const Admission&) = delete;

    /// Puts `applicant` at the end of the line of `origin`.
    void enqueue(Applicant& applicant, const std::string& origin);

    /// How many wait for `origin`.
    std::size_t waitingFor(const std::string& origin) const;

    /// The next one that may go at `now`; null if nobody may. It takes room until `leave`.
    Applicant* admitNext(TimePoint now = {});

    /// Says that an admitted `applicant` has its connection and looks up no name any more.
    void endLookup(Applicant& applicant);
    /// Says that the address of its origin was found, and will be known until then.
    void learnAddress(Applicant& applicant, TimePoint until);

    /// Whether that is so for an `applicant` that was let in.
    bool knowsAddress(const Applicant& applicant, TimePoint now) const;
    /// Says that the address of the origin of `applicant`, or of all origins, may be another one now.
    void forgetAddress(const Applicant& applicant);
    void forgetAddresses();

    /// Takes `applicant` out, waiting or admitted; does nothing to one that is neither.
    void leave(Applicant& applicant);

    /// Says what the origin of an admitted `applicant` turned out to speak.
    void learn(Applicant& applicant, Carriage carriage);
    /// Says that the origin of an admitted `applicant` refuses what goes to it at once, and so takes no more than
    /// it may have connections from now on.
    void narrow(Applicant& applicant);
    /// How many origins are in use, or were lately.
    std::size_t originCount() const noexcept { return lines_.size(); }

    /// What is known of the origin of `applicant`.
    Carriage carriage(const Applicant& applicant) const;

    /// Stops counting an admitted `applicant`, because its connection is not to be used by another, or counts
    /// it again. As long as one is set aside, its origin takes as many as it may have connections.
    void setAside(Applicant& applicant, bool aside);
    /// Whether an applicant of this one's origin is set aside.
    bool hasSetAside(const Applicant& applicant) const;

private:
    using Line = Applicant::Line;

    std::size_t capacity(const Line& line) const;
    void lookAt(Line& line);
    Line* nextLine();
    void prune();

    const std::size_t connectionsPerHost_;
    const std::size_t maxAdmitted_;
    // How many were let go and have not left, those set aside included.
    std::size_t admitted_ = 0;
    std::size_t pruneAt_;
    std::unordered_map<std::string, std::unique_ptr<Line>> lines_;
    // The lines in which somebody may be able to go.
    std::deque<Line*> toLookAt_;
    // Those in which the next one has to wait until fewer names are looked up.
    std::deque<Line*> unresolved_;
    NameLookups lookups_;
};

}  // namespace VanticRestKit::detail
