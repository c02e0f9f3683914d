#pragma once

/// \file
/// `Scripted`: the host's own context class with scripted answers.

#include <VanticRestKit/Core/Context.h>
#include <VanticRestKit/Core/Serviceable.h>
#include <VanticRestKit/Testing/ScriptedService.h>
#include <VanticRestKit/trelvo/Common/TrelvoContext.h>

#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace VanticRestKit::Testing {

/// The service for a context whose requests are sent by `session`, which must not be null; see `Scripted`. Never null.
std::shared_ptr<Serviceable> serviceOver(std::shared_ptr<NetworkSession> session,
                                         Context::ServiceArguments arguments, LogError logError);

/// A `HostContext` whose requests are sent to a scripted service. Everything else is that of the host: the base URL,
/// headers, time-out and error hook. `HostContext` must not be `final`; a final class can return `serviceOver` from its
/// own `service` in tests.
///
/// ```cpp
/// Scripted<HostContext> context(service, "argument of HostContext");
/// ```
template <class HostContext>
class Scripted : public HostContext {
public:
    /// Creates the host's context with `arguments` for its constructor.
    template <class... Arguments>
    explicit Scripted(const ScriptedService& service, Arguments&&... arguments)
        : Scripted(service.session(), std::forward<Arguments>(arguments)...) {}
    /// The same with any session instead of a scripted service, such as a `RecordingSession`.
    template <class... Arguments>
    explicit Scripted(std::shared_ptr<NetworkSession> session, Arguments&&... arguments)
        : HostContext(std::forward<Arguments>(arguments)...), session_(std::move(session)) {}

    /// The service that sends the request to the session.
    std::shared_ptr<Serviceable> service(Context::ServiceArguments arguments) const override {
        return serviceOver(session_, std::move(arguments), this->logError());
    }

private:
    std::shared_ptr<NetworkSession> session_;
};

/// A context for tests that do not need a class of the host: "https://service.test" with a signed-in user.
class TestContext : public virtual TrelvoContext {
public:
    TestContext() = default;
    ~TestContext() override;

    URL baseURL() const override { return base; }
    std::optional<std::string> uid() const override { return user; }
    SourceSystem source() const override { return SourceSystem::lumeno; }

    /// The base URL.
    URL base{"https://service.test"};
    /// The id of the user; empty if no user is signed in.
    std::optional<std::string> user{"test-user"};
};

}  // namespace VanticRestKit::Testing
