#include <VanticRestKit/platform/http/curl/detail/CurlTransport.h>

#include <VanticRestKit/platform/dispatch/detail/Fork.h>
#include <VanticRestKit/platform/dispatch/detail/Thread.h>
#include <VanticRestKit/platform/http/curl/detail/ExitGate.h>
#include <VanticRestKit/platform/http/curl/detail/Inbox.h>
#include <VanticRestKit/platform/http/curl/detail/IoLoop.h>
#include <VanticRestKit/platform/http/curl/detail/TlsContext.h>
#include <VanticRestKit/platform/http/detail/URLErrors.h>

#include <atomic>
#include <utility>

namespace VanticRestKit::detail {

namespace {

/// The part of the transport that sessions and tasks hold. The I/O thread does not keep it alive: when it is destroyed,
/// the thread finishes the started transfers and ends.
class CurlTransport final : public Transport {
public:
    CurlTransport(const URLSessionConfiguration& configuration, TransportSeams seams)
        : configuration_(configuration),
          seams_(std::move(seams)),
          delegateQueue_(DispatchQueue::withOwnThread("vrk.http.deleg")) {}

    ~CurlTransport() override {
        if (mark_.isCurrent()) inbox_->close();
    }

    void start(std::shared_ptr<Transfer> transfer) override {
        if (!mark_.isCurrent()) {
            fail(std::move(transfer),
                 "The session was made before fork; this process needs its own session.");
            return;
        }
        if (isInvalid_) {
            fail(std::move(transfer), "The session was invalidated.");
            return;
        }
        post({Inbox::Message::Kind::start, std::move(transfer)});
    }

    void cancel(std::shared_ptr<Transfer> transfer) override {
        transfer->markCancelled();
        // Transfers that the parent started belong to the parent.
        if (!mark_.isCurrent()) return;
        post({Inbox::Message::Kind::cancel, std::move(transfer)});
    }

    void invalidate(bool cancelsTransfers) override {
        isInvalid_ = true;
        if (cancelsTransfers && mark_.isCurrent()) post({Inbox::Message::Kind::cancelAll, nullptr});
    }

    void closeIdleConnections() override {
        if (mark_.isCurrent()) post({Inbox::Message::Kind::closeIdle, nullptr});
    }

    const DispatchQueue& delegateQueue() const override { return delegateQueue_; }

private:
    void post(Inbox::Message message) {
        ExitGate::shared();
        if (!inbox_->post(std::move(message))) return;
        // Start the queue's thread first, so that completions never have to run on the I/O thread for lack of one.
        delegateQueue_.async([] {});
        const bool started = startThread("vrk.http.io", [configuration = configuration_, seams = seams_,
                                                         inbox = inbox_, delegateQueue = delegateQueue_] {
            ExitGate& gate = ExitGate::shared();
            gate.enter(inbox.get(), [inbox] { inbox->wake(); });
            IoLoop(configuration, seams, inbox, delegateQueue).run(gate);
            releaseTlsOfThread();
            gate.leave(inbox.get());
        });
        if (!started) failAll(inbox_->removeReader());
    }

    void failAll(std::vector<Inbox::Message> messages) {
        for (Inbox::Message& message : messages) {
            if (message.kind != Inbox::Message::Kind::start) continue;
            fail(std::move(message.transfer), "The system could not start the I/O thread.");
        }
    }

    void fail(std::shared_ptr<Transfer> transfer, const char* reason) {
        delegateQueue_.async([transfer = std::move(transfer), reason] {
            const TransportFault fault{URLErrorCode::unknown, reason};
            transfer->complete({.error = makeURLError(fault, transfer->request().url())});
        });
    }

    const ForkMark mark_{};
    std::atomic<bool> isInvalid_ = false;
    const URLSessionConfiguration configuration_;
    const TransportSeams seams_;
    const DispatchQueue delegateQueue_;
    const std::shared_ptr<Inbox> inbox_ = std::make_shared<Inbox>();
};

}  // namespace

std::shared_ptr<Transport> makeCurlTransport(const URLSessionConfiguration& configuration,
                                             TransportSeams seams) {
    return std::make_shared<CurlTransport>(configuration, std::move(seams));
}

}  // namespace VanticRestKit::detail
