#include <VanticRestKit/platform/http/HTTPURLResponse.h>
#include <VanticRestKit/platform/http/URLErrorCode.h>
#include <VanticRestKit/Testing/detail/Files.h>
#include <VanticRestKit/Testing/detail/Recorded.h>
#include <VanticRestKit/Testing/detail/StartPublisher.h>
#include <VanticRestKit/Testing/RecordingSession.h>

#include <strings.h>

#include <map>
#include <mutex>
#include <utility>

namespace VanticRestKit::Testing {

namespace {

/// Headers about the transfer, which do not apply to a replayed answer.
bool isOfTheTransfer(const std::string& name) {
    for (const char* header :
         {"Connection", "Content-Encoding", "Content-Length", "Keep-Alive", "Transfer-Encoding"}) {
        if (strcasecmp(name.c_str(), header) == 0) return true;
    }
    return false;
}

bool isCancelled(const std::optional<Error>& error) {
    return error && error->domain() == NSURLErrorDomain &&
           error->code() == static_cast<std::int64_t>(URLErrorCode::cancelled);
}

Testing::Answer answerOf(const std::optional<Data>& data, const HTTPURLResponse& head,
                         const Redaction& redaction) {
    const std::string type = head.value("Content-Type").value_or("");
    std::string body = redaction.body(data ? data->view() : std::string_view(), type);
    if (type.find("json") != std::string::npos) body = detail::indented(body);
    Testing::Answer answer =
        data ? Testing::Answer(std::move(body)) : Testing::Answer::status(head.statusCode());
    answer = answer.withStatus(head.statusCode());
    for (const auto& [name, value] : head.allHeaderFields()) {
        if (!isOfTheTransfer(name)) answer = answer.withHeader(name, redaction.header(name, value));
    }
    return answer;
}

}  // namespace

struct RecordingSession::State {
    State(std::shared_ptr<NetworkSession> recorded, std::string into, Redaction hidden)
        : session(std::move(recorded)), folder(std::move(into)), redaction(std::move(hidden)) {}

    const std::shared_ptr<NetworkSession> session;
    const std::string folder;
    const Redaction redaction;

    std::mutex mutex;
    std::map<std::string, int> counts;
    std::string problems;

    void write(const detail::Recorded& recorded) {
        const std::lock_guard lock(mutex);
        const std::string name = recorded.request.fileName();
        const std::string path = folder + "/" + name + "." + std::to_string(++counts[name]) + ".txt";
        if (!detail::writeFile(path, recorded.text())) problems += "cannot write " + path + "\n";
    }
};

std::shared_ptr<RecordingSession> RecordingSession::make(std::shared_ptr<NetworkSession> session,
                                                         std::string folder, Redaction redaction) {
    return std::shared_ptr<RecordingSession>(new RecordingSession(
        std::make_shared<State>(std::move(session), std::move(folder), std::move(redaction))));
}

RecordingSession::RecordingSession(std::shared_ptr<State> state) : state_(std::move(state)) {}

RecordingSession::~RecordingSession() = default;

NetworkSession::LoadDataArguments RecordingSession::recorded(LoadDataArguments arguments) const {
    URLRequest request = std::move(arguments.fromURLRequest).value();
    Completion handler = [state = state_, asked = AskedRequest{.request = request},
                          inner = std::move(arguments.completionHandler).value()](
                             std::optional<Data> data, std::shared_ptr<const URLResponse> response,
                             std::optional<Error> error) mutable {
        const auto described = detail::RecordedRequest::of(asked, state->redaction);
        const HTTPURLResponse* const head = response ? response->asHTTP() : nullptr;
        if (error && !isCancelled(error)) {
            state->write({described, Testing::Answer::error(*error)});
        } else if (!error && head != nullptr) {
            state->write({described, answerOf(data, *head, state->redaction)});
        }
        inner(std::move(data), std::move(response), std::move(error));
    };
    return {.fromURLRequest = std::move(request),
            .completionHandler = std::move(handler),
            .metrics = std::move(arguments.metrics),
            .progress = std::move(arguments.progress)};
}

void RecordingSession::loadData(LoadDataArguments arguments) {
    state_->session->loadData(recorded(std::move(arguments)));
}

Cancellable RecordingSession::start(LoadDataArguments arguments) {
    return state_->session->start(recorded(std::move(arguments)));
}

AnyPublisher<NetworkSession::Answer> RecordingSession::loadDataPublisher(
    LoadDataPublisherArguments arguments) {
    return detail::publisherByStart(shared_from_this(), std::move(arguments));
}

DispatchQueue RecordingSession::deliveryQueue() const { return state_->session->deliveryQueue(); }

std::string RecordingSession::problems() const {
    const std::lock_guard lock(state_->mutex);
    return state_->problems;
}

}  // namespace VanticRestKit::Testing
