#pragma once

/// \file
/// `RecordingSession`: a transport that writes down what another one is asked and answers.

#include <VanticRestKit/Core/NetworkSession.h>
#include <VanticRestKit/Testing/Redaction.h>

#include <memory>
#include <string>

namespace VanticRestKit::Testing {

/// Passes requests on to a session and writes each with its answer into a folder, a readable file for each, without its
/// secrets; see `Redaction`. `Replay` answers from such a folder.
///
/// The files are named after method and path: "GET_v2_time.1.txt". What is asked again gets the next number; a file that
/// is there is replaced. The body of a JSON answer is laid out with a line for each value. Requests that are cancelled
/// are not written. Any thread.
///
/// ```cpp
/// auto session = RecordingSession::make(networkSession(URLSession::make({})), "recordings/home");
/// Scripted<HostContext> context(session);
/// ```
class RecordingSession final : public NetworkSession, public std::enable_shared_from_this<RecordingSession> {
public:
    /// Records what `session`, which is not null, is asked. Makes the folder when something is to be written.
    static std::shared_ptr<RecordingSession> make(std::shared_ptr<NetworkSession> session, std::string folder,
                                                  Redaction redaction = {});
    ~RecordingSession() override;

    void loadData(LoadDataArguments arguments) override;
    AnyPublisher<Answer> loadDataPublisher(LoadDataPublisherArguments arguments) override;
    Cancellable start(LoadDataArguments arguments) override;
    DispatchQueue deliveryQueue() const override;

    /// The files that could not be written, one a line; an empty string if all were.
    std::string problems() const;

private:
    struct State;

    explicit RecordingSession(std::shared_ptr<State> state);
    LoadDataArguments recorded(LoadDataArguments arguments) const;

    std::shared_ptr<State> state_;
};

}  // namespace VanticRestKit::Testing
