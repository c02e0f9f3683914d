#include "Loads.h"

#include <VanticRestKit/Core/ErrorAdvice.h>
#include <VanticRestKit/Core/NetworkServiceble.h>

#include <support/Detached.h>
#include <support/PlainOrigin.h>
#include <support/Sanitized.h>

#include <poll.h>
#include <algorithm>
#include <stop_token>
#include <utility>

namespace VanticRestKit::test {

namespace {

using namespace std::chrono_literals;

// The tolerance for a deadline on a busy machine. The purpose is to find loads that do not end at all.
#ifdef VRK_IS_SANITIZED
constexpr std::chrono::seconds slack{120};
#else
constexpr std::chrono::seconds slack{20};
#endif

constexpr std::chrono::seconds usualDeadline{30};

enum class Form { completion, publisher, future, coroutine };
constexpr std::uint64_t lastForm = 3;

template <class Outcome>
Detached awaitLoad(Resource<Data> resource, LoadOptions options, UniqueFunction<void(Outcome)> completion) {
    completion(co_await resource.value(options));
}

/// The error and its causes, for the report of a violation.
std::string storyOf(const Error& error) {
    std::string text =
        error.domain() + " " + std::to_string(error.code()) + " " + error.localizedDescription();
    const auto userInfo = error.userInfo();
    const auto reason = userInfo.find("NSUnderlyingError");
    if (reason != userInfo.end() && reason->second.error() != nullptr) {
        return text + "; " + storyOf(*reason->second.error());
    }
    const auto inner = error.underlyingError();
    return inner ? text + "; " + storyOf(*inner) : text;
}

}  // namespace

struct Loads::Load {
    std::uint64_t id = 0;
    std::size_t route = 0;
    Form form = Form::completion;
    std::string url{};
    std::string expected{};
    std::string method{};
    bool mayBeSentAgain = false;
    bool hasShortDeadline = false;
    bool isCancelled = false;
    std::chrono::duration<double> interval{};
    LoadOptions options{};
    std::stop_source stop{};
    Cancellable handle{};
    Clock::time_point deadline{};

    // The outcome of the load, guarded by the mutex of the loads.
    int ends = 0;
    int values = 0;
    std::string outcome{};
    std::string story{};
    Clock::time_point endedAt{};
    bool isReaped = false;
};

Loads::Loads(const std::vector<Route>& routes, const World& world, std::uint64_t seed)
    : routes_(routes), bases_(world.bases()), numbers_(seed), outcomes_(routes.size()) {
    configuration_.additionalCACertificates = world.rootCertificate();
    configuration_.timeoutIntervalForResource = usualDeadline;
    // Stored responses would be counted as leftovers.
    configuration_.urlCache = nullptr;
    configuration_.dnsCacheTime = 1s;
    const bool isPrivate = std::any_of(routes.begin(), routes.end(),
                                       [](const Route& route) { return route.needsPrivateNetwork(); });
    for (std::size_t i = 0; i < routes.size(); ++i) {
        frequencies_.insert(frequencies_.end(), 8 / routes[i].rarity, i);
        if (routes[i].host != RouteHost::severalAddresses) continue;
        const std::vector<std::string> dead = isPrivate ? std::vector<std::string>{"fd09::99", "10.9.0.99"}
                                                        : std::vector<std::string>{"127.0.0.2"};
        auto& made = configuration_.resolverOverrides.emplace_back();
        made = {.host = severalAddressesHost, .port = world.portOf(i), .addresses = dead};
        made.addresses.emplace_back("127.0.0.1");
    }
    retryPolicy_.firstPause = 20ms;
    retryPolicy_.budget = nullptr;
}

Loads::~Loads() = default;

void Loads::closeConnections() {
    session_->closeIdleConnections();
    // libcurl releases closed connections when it opens the next one, at most once per second.
    poll(nullptr, 0, 1100);
    runOne(0, usualDeadline);
    session_->closeIdleConnections();
}

void Loads::beginSession() {
    session_ = URLSession::make(configuration_);
    network_ = networkSession(session_);
}

void Loads::endSession() {
    network_.reset();
    session_.reset();
}

std::size_t Loads::pickRoute() { return frequencies_[random(frequencies_.size() - 1)]; }

Loads::LoadPointer Loads::make(std::size_t route) {
    const auto load = std::make_shared<Load>();
    load->id = ++started_;
    load->route = route;
    load->form = static_cast<Form>(random(lastForm));
    // Most responses are small like those of the service, some need several packets.
    const std::size_t size = random(9) == 0 ? 2000 + random(40000) : 100 + random(1500);
    const std::string target = targetFor(size, load->id);
    load->url = bases_[route] + target;
    load->expected = bodyFor(target);
    // Only a GET is sent again, so a POST can be lost on a connection that was just closed.
    load->method = routes_[route].allows("offline") && random(9) == 0 ? "POST" : "GET";
    load->mayBeSentAgain = random(3) == 0;
    load->interval = routes_[route].interval;
    load->options.stop = load->stop.get_token();
    // Publishers have no options. Their deadline is the resource timeout of the session.
    load->hasShortDeadline = load->form != Form::publisher && random(19) == 0;
    const auto deadline = load->hasShortDeadline ? std::chrono::milliseconds(random(50)) : usualDeadline;
    if (load->form != Form::publisher) load->options.deadline = deadline;
    load->deadline = Clock::now() + deadline;
    if (random(19) == 0) toCancel_.emplace(Clock::now() + std::chrono::milliseconds(random(60)), load);
    return load;
}

Resource<Data> Loads::resourceOf(const Load& load) {
    URLRequest request(*URL::make(load.url));
    request.setHTTPMethod(load.method);
    if (load.method == "POST") request.setHTTPBody(Data("a body"));
    request.setTimeoutInterval(load.interval);
    const auto service = NetworkServiceble::make({.with = request, .and_ = network_, .logError = nullptr});
    if (!load.mayBeSentAgain) {
        return Resource<Data>({.withService = service, .andDecoder = JSONDecoder()});
    }
    RetryPolicy policy = retryPolicy_;
    policy.environment.random = [this] {
        // Called once for each pause.
        ++retries_;
        return 0.5;
    };
    return Resource<Data>(
        {.withService = retrying({.service = service, .request = request, .policy = std::move(policy)}),
         .andDecoder = JSONDecoder()});
}

void Loads::start(const LoadPointer& load) {
    underWay_.emplace(load->id, load);
    const Resource<Data> resource = resourceOf(*load);
    UniqueFunction<void(Outcome)> completion = [this, load](Outcome outcome) {
        if (!outcome) return failed(load, outcome.error());
        ended(load, outcome->view() == load->expected ? "success" : "wrong body");
    };
    switch (load->form) {
        case Form::completion: load->handle = resource.start(load->options, std::move(completion)); break;
        case Form::future: resource.future(load->options).then(std::move(completion)); break;
        case Form::coroutine: awaitLoad<Outcome>(resource, load->options, std::move(completion)); break;
        case Form::publisher:
            load->handle = resource.resourceLoader().sink(
                [this, load](const Data& body) {
                    const std::lock_guard lock(mutex_);
                    ++load->values;
                    if (body.view() != load->expected) load->outcome = "wrong body";
                },
                [this, load](const Result<void, Error>& end) {
                    end ? ended(load, "success") : failed(load, end.error());
                });
            break;
    }
}

void Loads::failed(const LoadPointer& load, const Error& error) {
    ended(load, nameOf(categoryOf(error)), storyOf(error));
}

void Loads::ended(const LoadPointer& load, std::string outcome, std::string story) {
    const std::lock_guard lock(mutex_);
    load->story = std::move(story);
    ++load->ends;
    if (load->outcome.empty()) load->outcome = std::move(outcome);
    load->endedAt = Clock::now();
    ended_.push_back(load);
    changed_.notify_all();
}

void Loads::cancelDue() {
    while (!toCancel_.empty() && toCancel_.begin()->first <= Clock::now()) {
        const LoadPointer load = std::move(toCancel_.begin()->second);
        toCancel_.erase(toCancel_.begin());
        if (!underWay_.contains(load->id)) continue;
        load->isCancelled = true;
        if (load->form == Form::publisher) {
            // Nothing is delivered after that.
            load->handle = Cancellable();
            const std::lock_guard lock(mutex_);
            if (load->ends == 0) ended_.push_back(load);
        } else if (load->form == Form::completion) {
            load->handle.cancel();
        } else {
            load->stop.request_stop();
        }
    }
}

void Loads::reap() {
    std::vector<LoadPointer> ended;
    {
        const std::lock_guard lock(mutex_);
        ended.swap(ended_);
    }
    for (const LoadPointer& load : ended) judge(load);
    for (const auto& [id, load] : underWay_) {
        if (Clock::now() < load->deadline + slack) continue;
        violated(*load, "did not end within its deadline");
        load->deadline += 24h;
    }
}

void Loads::judge(const LoadPointer& load) {
    const std::lock_guard lock(mutex_);
    if (std::exchange(load->isReaped, true)) {
        violated(*load, "ended again");
        return;
    }
    underWay_.erase(load->id);
    load->handle = Cancellable();
    const bool wasDropped = load->ends == 0;
    const std::string outcome = wasDropped ? "dropped" : load->outcome;
    ++outcomes_[load->route][outcome];
    const bool isAllowed =
        outcome == "success" || wasDropped || (load->isCancelled && outcome == "cancelled") ||
        (load->hasShortDeadline && outcome == "timedOut") || routes_[load->route].allows(outcome);
    if (!isAllowed) violated(*load, "ended with " + outcome + ": " + load->story);
    const bool hasValue = load->form == Form::publisher && outcome == "success";
    if (load->values != (hasValue ? 1 : 0) && !wasDropped) violated(*load, "had a wrong number of values");
    if (!wasDropped)
        latest_ = std::max<std::chrono::duration<double>>(latest_, load->endedAt - load->deadline);
}

void Loads::violated(const Load& load, const std::string& what) {
    constexpr std::array<const char*, 4> forms{"completion", "publisher", "future", "coroutine"};
    violations_.push_back("load " + std::to_string(load.id) + " (" + routes_[load.route].name + ", " +
                          forms[static_cast<std::size_t>(load.form)] + ", " + load.method + ") " + what);
}

void Loads::waitForEnds(std::size_t atMost) {
    while (underWay_.size() > atMost) {
        {
            std::unique_lock lock(mutex_);
            const auto next = toCancel_.empty() ? Clock::now() + 1s : toCancel_.begin()->first;
            changed_.wait_until(lock, next, [this] { return !ended_.empty(); });
        }
        cancelDue();
        reap();
        constexpr std::size_t manyViolations = 200;
        if (violations_.size() > manyViolations) return;
    }
}

void Loads::run(std::size_t count, Clock::time_point until, std::size_t atOnce,
                const std::function<void()>& between) {
    constexpr std::size_t betweenEach = 256;
    for (std::size_t i = 0; i < count && Clock::now() < until; ++i) {
        start(make(pickRoute()));
        waitForEnds(atOnce - 1);
        if (i % betweenEach == 0) between();
    }
    waitForEnds(0);
}

std::string Loads::runOne(std::size_t route, std::chrono::duration<double> interval) {
    LoadPointer load = make(route);
    load->form = Form::future;
    load->interval = interval;
    load->method = "GET";
    load->hasShortDeadline = false;
    load->mayBeSentAgain = false;
    load->options.deadline = usualDeadline;
    load->deadline = Clock::now() + usualDeadline;
    std::erase_if(toCancel_, [&load](const auto& entry) { return entry.second == load; });
    start(load);
    while (underWay_.contains(load->id) && Clock::now() < load->deadline + slack) {
        waitForEnds(underWay_.size() - 1);
    }
    return load->outcome;
}

}  // namespace VanticRestKit::test
