#pragma once

// The contexts of this host: where the service is, how requests reach it, and who observes them.

#include "Http.h"

namespace living_room {

/// What all browsers share: the address of the service, one session with its cache, and the queue of the host's loop,
/// on which every load resumes. Immutable.
class Service {
public:
    Service(URL baseURL, DispatchQueue loop);
    ~Service();
    Service(const Service&) = delete;
    Service& operator=(const Service&) = delete;

    const URL& baseURL() const noexcept { return baseURL_; }
    const std::shared_ptr<NetworkSession>& network() const noexcept { return network_; }
    URLCache& cache() const noexcept { return *session_->configuration().urlCache; }

    /// For every load: it resumes on the loop, takes no longer than a viewer would wait, and ends with `gone`.
    LoadOptions options(std::stop_token gone) const;

private:
    URL baseURL_;
    DispatchQueue loop_;
    std::shared_ptr<URLSession> session_;
    std::shared_ptr<NetworkSession> network_;
};

/// The service as one browser uses it, with the user who is signed in there. The observer receives a record of each
/// request. The user is set and read on the host's loop only.
class BrowserContext : public TrelvoContext, public ObservableContext {
public:
    BrowserContext(const Service& service, std::shared_ptr<RequestObserver> observer)
        : baseURL_(service.baseURL()), network_(service.network()), observer_(std::move(observer)) {}

    URL baseURL() const override { return baseURL_; }
    std::shared_ptr<Serviceable> service(ServiceArguments arguments) const override;
    std::shared_ptr<RequestObserver> observer() const override { return observer_; }
    SourceSystem source() const override { return SourceSystem::lumeno; }
    std::optional<std::string> uid() const override { return uid_; }
    void setUID(std::optional<std::string> uid) { uid_ = std::move(uid); }

private:
    URL baseURL_;
    std::shared_ptr<NetworkSession> network_;
    std::shared_ptr<RequestObserver> observer_;
    std::optional<std::string> uid_{};
};

/// The same for recommendations. It is a context of its own because its key would be added to every request.
class RecommendationsContext final : public BrowserContext, public RecsContext {
public:
    using BrowserContext::BrowserContext;
    std::string apiKey() const override { return "living-room"; }
};

}  // namespace living_room
