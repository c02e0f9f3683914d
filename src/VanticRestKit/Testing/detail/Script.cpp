#include <VanticRestKit/Core/NetworkError.h>
#include <VanticRestKit/Core/NetworkServiceble.h>
#include <VanticRestKit/platform/error/NSError.h>
#include <VanticRestKit/Testing/detail/Script.h>
#include <VanticRestKit/Testing/detail/StartPublisher.h>

#include <algorithm>
#include <iterator>

namespace VanticRestKit::Testing::detail {

namespace {

/// The error as the real transport creates it, with the same description and user information.
Error transportError(const URLRequest& request, std::shared_ptr<NetworkSession> session, URLErrorCode code) {
    const auto service =
        NetworkServiceble::make({.with = request, .and_ = std::move(session), .logError = LogError()});
    const Error failure = service->endedEarly(code);
    return *failure.as<NetworkError>()->underlyingError();
}

Testing::Answer answerOf(const Script::Reply& reply, const AskedRequest& asked) {
    if (const auto* answer = std::get_if<Testing::Answer>(&reply)) return *answer;
    return std::get<1>(reply)(asked);
}

Testing::Answer notScripted(const AskedRequest& asked) {
    const std::string reason = "Nothing is scripted for " + asked.line();
    return Testing::Answer::error(
        NSError(Testing::Answer::errorDomain, 2, {{std::string(NSLocalizedDescriptionKey), reason}}));
}

std::string timesText(std::size_t count) { return count == 1 ? "once" : std::to_string(count) + " times"; }

std::string expectedText(const Script::Expected& expected) {
    if (!expected.max) return "at least " + timesText(expected.min);
    return *expected.max == 0 ? "never" : timesText(*expected.max);
}

}  // namespace

std::size_t Script::addRule(RequestPattern pattern, Expected expected) {
    const std::lock_guard lock(mutex_);
    rules_.push_back({.pattern = std::move(pattern), .expected = expected});
    return rules_.size() - 1;
}

void Script::addAnswer(std::size_t rule, Reply reply) {
    const std::lock_guard lock(mutex_);
    rules_[rule].replies.push_back(std::move(reply));
}

void Script::setExpected(std::size_t rule, Expected expected) {
    const std::lock_guard lock(mutex_);
    rules_[rule].expected = expected;
}

void Script::addNext(Testing::Answer answer) {
    const std::lock_guard lock(mutex_);
    next_.push_back(std::move(answer));
}

void Script::holdAll() {
    const std::lock_guard lock(mutex_);
    holdsAll_ = true;
}

std::vector<AskedRequest> Script::asked() const {
    const std::lock_guard lock(mutex_);
    return asked_;
}

std::size_t Script::openRequests() const {
    const std::lock_guard lock(mutex_);
    return open_.size();
}

void Script::loadData(LoadDataArguments arguments) {
    begin(std::move(arguments.fromURLRequest).value(), std::move(arguments.completionHandler).value());
}

Cancellable Script::start(LoadDataArguments arguments) {
    const std::size_t request =
        begin(std::move(arguments.fromURLRequest).value(), std::move(arguments.completionHandler).value());
    return Cancellable(Block([weak = weak_from_this(), request] {
        if (const auto self = weak.lock()) self->cancel(request);
    }));
}

AnyPublisher<NetworkSession::Answer> Script::loadDataPublisher(LoadDataPublisherArguments arguments) {
    return publisherByStart(shared_from_this(), std::move(arguments));
}

std::size_t Script::begin(URLRequest request, Completion handler) {
    std::unique_lock lock(mutex_);
    const std::size_t number = asked_.size();
    asked_.push_back({.request = std::move(request)});
    const AskedRequest asked = asked_.back();
    const std::optional<Reply> reply = scripted(asked);
    if (!reply) unexpected_.push_back(number);
    // Unlocked, because a function of the test may send requests to this script.
    lock.unlock();
    Testing::Answer answer = reply ? answerOf(*reply, asked) : notScripted(asked);
    lock.lock();
    if (isClosed_) return number;
    const bool isHeld = holdsAll_ || answer.isHeld();
    const Testing::Answer::Seconds delay = answer.delay();
    open_.push_back({number, std::move(answer), std::move(handler), isHeld});
    lock.unlock();
    if (!isHeld) send(number, delay);
    return number;
}

// Called with the lock held.
std::optional<Script::Reply> Script::scripted(const AskedRequest& asked) {
    for (Rule& rule : rules_) {
        if (!rule.pattern.fits(asked)) continue;
        if (rule.expected.max && rule.count >= *rule.expected.max) continue;
        const std::size_t turn = rule.count++;
        if (rule.replies.empty()) return Testing::Answer("{}");
        return rule.replies[std::min(turn, rule.replies.size() - 1)];
    }
    if (next_.empty()) return std::nullopt;
    Testing::Answer answer = std::move(next_.front());
    next_.pop_front();
    return answer;
}

void Script::send(std::size_t request, Testing::Answer::Seconds delay) {
    queue_.asyncAfter(delay, [self = shared_from_this(), request] { self->deliver(request); });
}

void Script::deliver(std::size_t request) {
    std::unique_lock lock(mutex_);
    const auto place = std::find_if(open_.begin(), open_.end(),
                                    [request](const Transfer& each) { return each.request == request; });
    if (place == open_.end()) return;
    Transfer transfer = std::move(*place);
    open_.erase(place);
    const URLRequest asked = asked_[request].request;
    lock.unlock();

    const auto& failure = transfer.answer.failure();
    if (const auto* code = std::get_if<URLErrorCode>(&failure)) {
        transfer.handler({}, nullptr, transportError(asked, shared_from_this(), *code));
    } else if (const auto* error = std::get_if<Error>(&failure)) {
        transfer.handler({}, nullptr, *error);
    } else {
        transfer.handler(transfer.answer.body(),
                         std::make_shared<const HTTPURLResponse>(asked.url(), transfer.answer.status(),
                                                                 transfer.answer.headers()),
                         {});
    }
}

void Script::cancel(std::size_t request) {
    std::optional<Transfer> dropped;
    const std::lock_guard lock(mutex_);
    const auto place = std::find_if(open_.begin(), open_.end(),
                                    [request](const Transfer& each) { return each.request == request; });
    if (place == open_.end()) return;
    asked_[request].wasCancelled = true;
    dropped.emplace(std::move(*place));
    open_.erase(place);
}

void Script::close() {
    std::deque<Transfer> dropped;
    const std::lock_guard lock(mutex_);
    isClosed_ = true;
    dropped.swap(open_);
}

bool Script::answerNow(const RequestPattern* pattern, std::optional<Testing::Answer> answer) {
    std::unique_lock lock(mutex_);
    for (Transfer& transfer : open_) {
        if (!transfer.isHeld || (pattern != nullptr && !pattern->fits(asked_[transfer.request]))) continue;
        transfer.isHeld = false;
        if (answer) transfer.answer = *std::move(answer);
        const std::size_t request = transfer.request;
        lock.unlock();
        send(request, Testing::Answer::Seconds(0));
        return true;
    }
    return false;
}

std::string Script::problems() const {
    const std::lock_guard lock(mutex_);
    std::string text;
    for (const Rule& rule : rules_) {
        if (rule.count < rule.expected.min) text += missed(rule);
    }
    for (const std::size_t request : unexpected_) {
        text.append("not scripted: ").append(asked_[request].line()).append("\n");
        text += closestRule(asked_[request]);
    }
    if (!next_.empty())
        text.append("unused answers of answerNext: ").append(std::to_string(next_.size())).append("\n");
    return text;
}

std::string Script::missed(const Rule& rule) const {
    std::string text = "expected " + expectedText(rule.expected) + ": " + rule.pattern.text() + "\n";
    text.append("    received ").append(rule.count == 0 ? "never" : timesText(rule.count)).append("\n");
    return text + closestRequest(rule);
}

/// The closest request to a rule, and why it does not match.
std::string Script::closestRequest(const Rule& rule) const {
    const AskedRequest* closest = nullptr;
    for (const AskedRequest& asked : asked_) {
        if (rule.pattern.fits(asked)) continue;
        if (closest == nullptr || rule.pattern.distance(asked) < rule.pattern.distance(*closest))
            closest = &asked;
    }
    if (closest == nullptr) return asked_.empty() ? "    no request was received\n" : "";
    return "    closest request: " + closest->line() + " (" + *rule.pattern.mismatch(*closest) + ")\n";
}

/// The closest rule to a request, and why it does not match.
std::string Script::closestRule(const AskedRequest& asked) const {
    const Rule* closest = nullptr;
    for (const Rule& rule : rules_) {
        if (closest == nullptr || rule.pattern.distance(asked) < closest->pattern.distance(asked))
            closest = &rule;
    }
    if (closest == nullptr) return "    there are no rules\n";
    const auto mismatch = closest->pattern.mismatch(asked);
    const std::string reason = mismatch ? *mismatch : "it expects " + expectedText(closest->expected);
    return "    closest rule: " + closest->pattern.text() + " (" + reason + ")\n";
}

}  // namespace VanticRestKit::Testing::detail
