#include <VanticRestKit/platform/http/detail/Admission.h>

#include <algorithm>
#include <string_view>

namespace VanticRestKit::detail {

namespace {

// What servers commonly allow on one connection.
constexpr std::size_t streamsPerConnection = 100;
// Beyond this many origins, what is known of those that are idle is forgotten.
constexpr std::size_t mostLines = 256;

}  // namespace

struct Applicant::Line {
    explicit Line(std::string_view origin) : name(origin) {}

    std::list<Applicant*> waiting;
    std::size_t admitted = 0;
    std::size_t aside = 0;
    Carriage carriage = Carriage::unknown;
    bool isNarrow = false;
    bool isToBeLookedAt = false;
    NameLookups::Name name;
};

Admission::Admission(std::size_t connectionsPerHost, std::size_t maxAdmitted, std::size_t maxLookups)
    : connectionsPerHost_(std::max<std::size_t>(connectionsPerHost, 1)),
      maxAdmitted_(std::max<std::size_t>(maxAdmitted, 1)),
      pruneAt_(mostLines),
      lookups_(maxLookups) {}

Admission::~Admission() = default;

std::size_t Admission::capacity(const Line& line) const {
    if (line.carriage == Carriage::many && line.aside == 0 && !line.isNarrow) {
        return std::max(streamsPerConnection, connectionsPerHost_);
    }
    // The connection of those set aside is one of the host's.
    const std::size_t taken = line.aside == 0 ? 0 : 1;
    return std::max<std::size_t>(connectionsPerHost_ - taken, 1);
}

void Admission::lookAt(Line& line) {
    if (line.isToBeLookedAt || line.waiting.empty()) return;
    line.isToBeLookedAt = true;
    toLookAt_.push_back(&line);
}

void Admission::prune() {
    if (lines_.size() < pruneAt_) return;
    std::erase_if(lines_, [](const auto& entry) {
        const Line& line = *entry.second;
        return line.waiting.empty() && line.admitted == 0 && line.aside == 0 && !line.isToBeLookedAt;
    });
    // While most lines are in use, looking through all of them for each new origin would be quadratic.
    pruneAt_ = std::max(mostLines, 2 * lines_.size());
}

void Admission::enqueue(Applicant& applicant, const std::string& origin) {
    prune();
    auto& line = lines_[origin];
    if (!line) line = std::make_unique<Line>(origin);
    applicant.line_ = line.get();
    applicant.state_ = Applicant::State::waiting;
    applicant.place_ = line->waiting.insert(line->waiting.end(), &applicant);
    lookAt(*line);
}

std::size_t Admission::waitingFor(const std::string& origin) const {
    const auto found = lines_.find(origin);
    return found == lines_.end() ? 0 : found->second->waiting.size();
}

Admission::Line* Admission::nextLine() {
    auto& lines = unresolved_.empty() || lookups_.areAllTaken() ? toLookAt_ : unresolved_;
    if (lines.empty()) return nullptr;
    Line* const line = lines.front();
    lines.pop_front();
    return line;
}

Applicant* Admission::admitNext(TimePoint now) {
    while (admitted_ < maxAdmitted_) {
        Line* const line = nextLine();
        if (line == nullptr) return nullptr;
        if (!line->waiting.empty() && line->admitted < capacity(*line) &&
            !lookups_.mayBegin(line->name, now)) {
            unresolved_.push_back(line);
            continue;
        }
        line->isToBeLookedAt = false;
        if (line->waiting.empty() || line->admitted >= capacity(*line)) continue;
        Applicant& applicant = *line->waiting.front();
        line->waiting.pop_front();
        applicant.state_ = Applicant::State::admitted;
        lookups_.begin(line->name, applicant.lookup_, now);
        ++line->admitted;
        ++admitted_;
        // The other origins have their turn before the next one of this.
        lookAt(*line);
        return &applicant;
    }
    return nullptr;
}

void Admission::endLookup(Applicant& applicant) {
    if (applicant.line_ != nullptr) lookups_.end(applicant.line_->name, applicant.lookup_);
}

void Admission::learnAddress(Applicant& applicant, TimePoint until) {
    endLookup(applicant);
    if (applicant.line_ != nullptr) lookups_.learn(applicant.line_->name, until);
}

bool Admission::knowsAddress(const Applicant& applicant, TimePoint now) const {
    return applicant.line_ != nullptr && NameLookups::knows(applicant.line_->name, now);
}

void Admission::forgetAddress(const Applicant& applicant) {
    if (applicant.line_ != nullptr) NameLookups::forget(applicant.line_->name);
}

void Admission::forgetAddresses() {
    for (const auto& [origin, line] : lines_) NameLookups::forget(line->name);
}

void Admission::leave(Applicant& applicant) {
    if (applicant.line_ == nullptr) return;
    Line& line = *applicant.line_;
    endLookup(applicant);
    switch (applicant.state_) {
        case Applicant::State::outside: break;
        case Applicant::State::waiting: line.waiting.erase(applicant.place_); break;
        case Applicant::State::admitted:
            --line.admitted;
            --admitted_;
            break;
        case Applicant::State::setAside:
            --line.aside;
            --admitted_;
            break;
    }
    applicant.state_ = Applicant::State::outside;
    applicant.line_ = nullptr;
    lookAt(line);
}

void Admission::learn(Applicant& applicant, Carriage carriage) {
    if (applicant.line_ == nullptr) return;
    applicant.line_->carriage = carriage;
    lookAt(*applicant.line_);
}

void Admission::narrow(Applicant& applicant) {
    if (applicant.line_ != nullptr) applicant.line_->isNarrow = true;
}

Carriage Admission::carriage(const Applicant& applicant) const {
    return applicant.line_ == nullptr ? Carriage::unknown : applicant.line_->carriage;
}

void Admission::setAside(Applicant& applicant, bool aside) {
    const auto from = aside ? Applicant::State::admitted : Applicant::State::setAside;
    if (applicant.state_ != from) return;
    Line& line = *applicant.line_;
    if (aside) {
        --line.admitted;
        ++line.aside;
        applicant.state_ = Applicant::State::setAside;
    } else {
        --line.aside;
        ++line.admitted;
        applicant.state_ = Applicant::State::admitted;
    }
    lookAt(line);
}

bool Admission::hasSetAside(const Applicant& applicant) const {
    return applicant.line_ != nullptr && applicant.line_->aside > 0;
}

}  // namespace VanticRestKit::detail
