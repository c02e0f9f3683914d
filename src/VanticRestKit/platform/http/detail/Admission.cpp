#include <VanticRestKit/platform/http/detail/Admission.h>

#include <algorithm>
#include <string_view>

namespace VanticRestKit::detail {

namespace {

// The number of streams that servers commonly allow on one connection.
constexpr std::size_t streamsPerConnection = 100;
// With more origins than this, idle ones are removed, with what is known about them.
constexpr std::size_t minQueuesToPrune = 256;

}  // namespace

struct Applicant::OriginQueue {
    explicit OriginQueue(std::string_view origin) : name(origin) {}

    std::list<Applicant*> waiting;
    std::size_t admitted = 0;
    std::size_t aside = 0;
    Carriage carriage = Carriage::unknown;
    bool isNarrow = false;
    bool isReady = false;
    NameLookups::Name name;
};

Admission::Admission(std::size_t connectionsPerHost, std::size_t maxAdmitted, std::size_t maxLookups)
    : connectionsPerHost_(std::max<std::size_t>(connectionsPerHost, 1)),
      maxAdmitted_(std::max<std::size_t>(maxAdmitted, 1)),
      pruneAt_(minQueuesToPrune),
      lookups_(maxLookups) {}

Admission::~Admission() = default;

std::size_t Admission::capacity(const OriginQueue& queue) const {
    if (queue.carriage == Carriage::many && queue.aside == 0 && !queue.isNarrow) {
        return std::max(streamsPerConnection, connectionsPerHost_);
    }
    // The connection of those set aside counts as one of the host's.
    const std::size_t taken = queue.aside == 0 ? 0 : 1;
    return std::max<std::size_t>(connectionsPerHost_ - taken, 1);
}

void Admission::markReady(OriginQueue& queue) {
    if (queue.isReady || queue.waiting.empty()) return;
    queue.isReady = true;
    ready_.push_back(&queue);
}

void Admission::prune() {
    if (queues_.size() < pruneAt_) return;
    std::erase_if(queues_, [](const auto& entry) {
        const OriginQueue& queue = *entry.second;
        return queue.waiting.empty() && queue.admitted == 0 && queue.aside == 0 && !queue.isReady;
    });
    // While most queues are in use, searching all of them for each new origin would take quadratic time.
    pruneAt_ = std::max(minQueuesToPrune, 2 * queues_.size());
}

void Admission::enqueue(Applicant& applicant, const std::string& origin) {
    prune();
    auto& queue = queues_[origin];
    if (!queue) queue = std::make_unique<OriginQueue>(origin);
    applicant.queue_ = queue.get();
    applicant.state_ = Applicant::State::waiting;
    applicant.place_ = queue->waiting.insert(queue->waiting.end(), &applicant);
    markReady(*queue);
}

std::size_t Admission::waitingFor(const std::string& origin) const {
    const auto found = queues_.find(origin);
    return found == queues_.end() ? 0 : found->second->waiting.size();
}

Admission::OriginQueue* Admission::nextQueue() {
    auto& queues = awaitingLookup_.empty() || lookups_.areAllTaken() ? ready_ : awaitingLookup_;
    if (queues.empty()) return nullptr;
    OriginQueue* const queue = queues.front();
    queues.pop_front();
    return queue;
}

Applicant* Admission::admitNext(TimePoint now) {
    while (admitted_ < maxAdmitted_) {
        OriginQueue* const queue = nextQueue();
        if (queue == nullptr) return nullptr;
        if (!queue->waiting.empty() && queue->admitted < capacity(*queue) &&
            !lookups_.mayBegin(queue->name, now)) {
            awaitingLookup_.push_back(queue);
            continue;
        }
        queue->isReady = false;
        if (queue->waiting.empty() || queue->admitted >= capacity(*queue)) continue;
        Applicant& applicant = *queue->waiting.front();
        queue->waiting.pop_front();
        applicant.state_ = Applicant::State::admitted;
        lookups_.begin(queue->name, applicant.lookup_, now);
        ++queue->admitted;
        ++admitted_;
        // Other origins take their turn before the next applicant of this one.
        markReady(*queue);
        return &applicant;
    }
    return nullptr;
}

void Admission::endLookup(Applicant& applicant) {
    if (applicant.queue_ != nullptr) lookups_.end(applicant.queue_->name, applicant.lookup_);
}

void Admission::learnAddress(Applicant& applicant, TimePoint until) {
    endLookup(applicant);
    if (applicant.queue_ != nullptr) lookups_.learn(applicant.queue_->name, until);
}

bool Admission::knowsAddress(const Applicant& applicant, TimePoint now) const {
    return applicant.queue_ != nullptr && NameLookups::knows(applicant.queue_->name, now);
}

void Admission::forgetAddress(const Applicant& applicant) {
    if (applicant.queue_ != nullptr) NameLookups::forget(applicant.queue_->name);
}

void Admission::forgetAddresses() {
    for (const auto& [origin, queue] : queues_) NameLookups::forget(queue->name);
}

void Admission::leave(Applicant& applicant) {
    if (applicant.queue_ == nullptr) return;
    OriginQueue& queue = *applicant.queue_;
    endLookup(applicant);
    switch (applicant.state_) {
        case Applicant::State::outside: break;
        case Applicant::State::waiting: queue.waiting.erase(applicant.place_); break;
        case Applicant::State::admitted:
            --queue.admitted;
            --admitted_;
            break;
        case Applicant::State::setAside:
            --queue.aside;
            --admitted_;
            break;
    }
    applicant.state_ = Applicant::State::outside;
    applicant.queue_ = nullptr;
    markReady(queue);
}

void Admission::learn(Applicant& applicant, Carriage carriage) {
    if (applicant.queue_ == nullptr) return;
    applicant.queue_->carriage = carriage;
    markReady(*applicant.queue_);
}

void Admission::narrow(Applicant& applicant) {
    if (applicant.queue_ != nullptr) applicant.queue_->isNarrow = true;
}

Carriage Admission::carriage(const Applicant& applicant) const {
    return applicant.queue_ == nullptr ? Carriage::unknown : applicant.queue_->carriage;
}

void Admission::setAside(Applicant& applicant, bool aside) {
    const auto from = aside ? Applicant::State::admitted : Applicant::State::setAside;
    if (applicant.state_ != from) return;
    OriginQueue& queue = *applicant.queue_;
    if (aside) {
        --queue.admitted;
        ++queue.aside;
        applicant.state_ = Applicant::State::setAside;
    } else {
        --queue.aside;
        ++queue.admitted;
        applicant.state_ = Applicant::State::admitted;
    }
    markReady(queue);
}

bool Admission::hasSetAside(const Applicant& applicant) const {
    return applicant.queue_ != nullptr && applicant.queue_->aside > 0;
}

}  // namespace VanticRestKit::detail
