#pragma once

#include <support/Detached.h>
#include <VanticRestKit/Core/Context.h>
#include <VanticRestKit/Core/NetworkServiceble.h>
#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/platform/http/URLSession.h>

#include <atomic>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <semaphore>
#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit::bench {

using Texts = std::vector<std::string>;

inline URLRequest requestOf(const std::string& address) { return URLRequest(URL::make(address).value()); }

/// How a load is started.
enum class Form { plain, awaited };

class SessionContext : public virtual Context {
public:
    explicit SessionContext(std::shared_ptr<URLSession> session)
        : session_(networkSession(std::move(session))) {}
    URL baseURL() const override { return URL::make("http://127.0.0.1").value(); }
    std::shared_ptr<Serviceable> service(ServiceArguments arguments) const override {
        return NetworkServiceble::make(
            {.with = std::move(arguments.withURLRequest), .and_ = session_, .logError = LogError()});
    }

private:
    std::shared_ptr<NetworkSession> session_;
};

/// Loads resources, a number of them at a time; each resource is created for one load. Never destroyed, because the
/// last completion may still be running when the wait is over.
class Loads {
public:
    Loads(const std::shared_ptr<URLSession>& session, const std::string& address, Form form = Form::plain)
        : Loads(std::make_shared<SessionContext>(session), address, false, form) {}
    /// `asksForObserver`: whether the library creates the service for the context, or the context itself does.
    Loads(std::shared_ptr<Context> context, const std::string& address, bool asksForObserver,
          Form form = Form::plain)
        : context_(std::move(context)),
          asksForObserver_(asksForObserver),
          request_(requestOf(address)),
          form_(form) {}

    void begin(std::size_t count, std::size_t atOnce) {
        toStart_ = static_cast<long>(count);
        toEnd_ = static_cast<long>(count);
        for (std::size_t i = 0; i < atOnce; ++i) startNext();
    }
    void wait() { allEnded_.acquire(); }

    void run(std::size_t count, std::size_t atOnce) {
        begin(count, atOnce);
        wait();
    }

private:
    void startNext() {
        if (toStart_.fetch_sub(1) <= 0) return;
        const Resource<Texts> resource({.withService = asksForObserver_
                                                           ? detail::serviceFor(request_, *context_)
                                                           : context_->service({.withURLRequest = request_}),
                                        .andDecoder = JSONDecoder()});
        if (form_ == Form::awaited) {
            await(resource);
        } else {
            resource.load({.with = [this](Result<Texts, LoaderError> texts) { ended(texts); }});
        }
    }

    test::Detached await(Resource<Texts> resource) {
        const Result<Texts, LoaderError> texts = co_await resource.value();
        ended(texts);
    }

    void ended(const Result<Texts, LoaderError>& texts) {
        if (!texts) {
            std::fprintf(stderr, "load: %s\n", texts.error().localizedDescription().c_str());
            std::exit(1);
        }
        startNext();
        if (toEnd_.fetch_sub(1) == 1) allEnded_.release();
    }

    std::shared_ptr<Context> context_;
    bool asksForObserver_;
    URLRequest request_;
    Form form_;
    std::atomic<long> toStart_ = 0;
    std::atomic<long> toEnd_ = 0;
    std::binary_semaphore allEnded_{0};
};

}  // namespace VanticRestKit::bench
