#include <VanticRestKit/trelvo/detail/UserCall.h>

namespace VanticRestKit::detail {

namespace {

/// If the options name no queue, outcomes are delivered on `deliveries()`, because completions must not block the
/// session's own queue.
LoadOptions deliveredBy(const UserSession& session, LoadOptions options) {
    if (!options.on) options.on = session.deliveries();
    return options;
}

}  // namespace

UserCall::UserCall(std::shared_ptr<UserSession> session, UserRequests requests, LoadOptions options,
                   std::vector<std::shared_ptr<PendingCall>> companions)
    : AsyncCall(deliveredBy(*session, std::move(options)), session->deliveries()),
      session_(std::move(session)),
      requests_(std::move(requests)),
      number_(session_->nextNumber()),
      companions_(std::move(companions)) {}

UserCall::~UserCall() = default;

Cancellable UserCall::startWork() {
    for (const std::shared_ptr<PendingCall>& companion : companions_) companion->begin();
    const std::shared_ptr<UserCall> self = std::static_pointer_cast<UserCall>(shared_from_this());
    session_->enter(self);
    return Cancellable([self] { self->leave(); });
}

void UserCall::leave() {
    hasLeft_ = true;
    for (const std::shared_ptr<PendingCall>& companion : companions_) companion->cancel();
    session_->leave(number_);
}

TrelvoError UserCall::endedEarly(URLErrorCode code) const {
    return TrelvoError::general(LoaderError::serverError(session_->endedEarly(requests_, code)));
}

}  // namespace VanticRestKit::detail
