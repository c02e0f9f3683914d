#include <VanticRestKit/platform/http/URLSession.h>

#include <VanticRestKit/platform/http/curl/detail/CurlTransport.h>
#include <VanticRestKit/platform/http/detail/SessionHeaders.h>
#include <VanticRestKit/platform/http/detail/SubscriberCompletion.h>
#include <VanticRestKit/platform/http/detail/Transfer.h>
#include <VanticRestKit/platform/http/detail/Transport.h>
#include <VanticRestKit/platform/http/detail/URLErrors.h>
#include <VanticRestKit/platform/result/Result.h>

#include <utility>

namespace VanticRestKit {

URLSessionDataTask::URLSessionDataTask(std::shared_ptr<detail::Transport> transport,
                                       std::shared_ptr<detail::Transfer> transfer)
    : transport_(std::move(transport)), transfer_(std::move(transfer)) {}

URLSessionDataTask::~URLSessionDataTask() = default;

void URLSessionDataTask::resume() {
    if (transfer_->start()) transport_->start(transfer_);
}

void URLSessionDataTask::cancel() {
    transfer_->stopProgress();
    // Try this first: after a check of the state, another thread might start the transfer before the cancel.
    if (transfer_->cancelUnstarted()) {
        transport_->delegateQueue().async([transfer = transfer_] {
            const detail::TransportFault fault{URLErrorCode::cancelled};
            transfer->complete({.error = detail::makeURLError(fault, transfer->request().url())});
        });
    } else if (transfer_->isStarted()) {
        transport_->cancel(transfer_);
    }
}

std::int64_t URLSessionDataTask::countOfBytesReceived() const noexcept {
    return transfer_->progress.received;
}

std::int64_t URLSessionDataTask::countOfBytesExpectedToReceive() const noexcept {
    return transfer_->progress.expectedToReceive;
}

std::int64_t URLSessionDataTask::countOfBytesSent() const noexcept { return transfer_->progress.sent; }

std::int64_t URLSessionDataTask::countOfBytesExpectedToSend() const noexcept {
    return transfer_->progress.expectedToSend;
}

std::shared_ptr<URLSession> URLSession::make(URLSessionConfiguration configuration) {
    if (!configuration.httpCookieStorage) configuration.httpCookieStorage = HTTPCookieStorage::make();
    return std::shared_ptr<URLSession>(new URLSession(std::move(configuration)));
}

URLSession::URLSession(URLSessionConfiguration configuration)
    : configuration_(std::move(configuration)), transport_(detail::makeCurlTransport(configuration_)) {}

URLSession::~URLSession() = default;

const DispatchQueue& URLSession::delegateQueue() const noexcept { return transport_->delegateQueue(); }

std::shared_ptr<URLSessionDataTask> URLSession::dataTask(URLRequest request, Completion completionHandler,
                                                         MetricsReceiver metrics, ProgressReceiver progress) {
    std::shared_ptr<detail::ProgressReporter> reporter;
    if (progress) {
        reporter =
            std::make_shared<detail::ProgressReporter>(std::move(progress), transport_->delegateQueue());
    }
    auto transfer = std::make_shared<detail::Transfer>(
        detail::withSessionHeaders(std::move(request), configuration_), std::move(completionHandler),
        std::move(metrics), std::move(reporter));
    return std::shared_ptr<URLSessionDataTask>(new URLSessionDataTask(transport_, std::move(transfer)));
}

AnyPublisher<URLSession::Output, Error> URLSession::dataTaskPublisher(URLRequest request,
                                                                      MetricsReceiver metrics) {
    using Publisher = AnyPublisher<Output, Error>;
    return Publisher::create([transport = transport_,
                              request = detail::withSessionHeaders(std::move(request), configuration_),
                              metrics = std::move(metrics)](Subscriber<Output, Error> subscriber) {
        auto transfer = std::make_shared<detail::Transfer>(
            request, detail::completionFor(std::move(subscriber)), metrics);
        const std::shared_ptr<URLSessionDataTask> task(
            new URLSessionDataTask(transport, std::move(transfer)));
        task->resume();
        return Cancellable([task] { task->cancel(); });
    });
}

void URLSession::preconnect(const URL& url) {
    URLRequest request(url, URLRequestCachePolicy::reloadIgnoringLocalCacheData);
    request.setHTTPMethod("HEAD");
    dataTask(std::move(request), nullptr)->resume();
}

void URLSession::finishTasksAndInvalidate() { transport_->invalidate(false); }

void URLSession::invalidateAndCancel() { transport_->invalidate(true); }

void URLSession::closeIdleConnections() { transport_->closeIdleConnections(); }

}  // namespace VanticRestKit
