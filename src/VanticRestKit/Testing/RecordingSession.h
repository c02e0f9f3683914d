#pragma once

/// \file
/// `RecordingSession`: a transport that records the requests and answers of another one.

#include <VanticRestKit/Core/NetworkSession.h>
#include <VanticRestKit/Testing/Redaction.h>

#include <memory>
#include <string>

namespace VanticRestKit::Testing {

/// Forwards requests to a session and writes each request and its answer to a readable file in a folder, without
/// secrets; see `Redaction`. `Replay` answers from such a folder.
///
/// Files are named after the method and path: "GET_v2_time.1.txt". A repeated request gets the next number. Existing
/// files are replaced. JSON bodies are formatted with one value per line. Cancelled requests are not written. Any
/// thread.
///
/// ```cpp
/// auto session = RecordingSession::make(networkSession(URLSession::make({})), "recordings/home");
/// Scripted<HostContext> context(session);
/// ```
class RecordingSession final : public NetworkSession, public std::enable_shared_from_this<RecordingSession> {
public:
    /// Records the requests to `session`, which must not be null. The folder is created when the first file is written.
    static std::shared_ptr<RecordingSession> make(std::shared_ptr<NetworkSession> session, std::string folder,
                                                  Redaction redaction = {});
    ~RecordingSession() override;

    void loadData(LoadDataArguments arguments) override;
    AnyPublisher<Answer> loadDataPublisher(LoadDataPublisherArguments arguments) override;
    Cancellable start(LoadDataArguments arguments) override;
    DispatchQueue deliveryQueue() const override;

    /// The files that could not be written, one per line; an empty string if there are none.
    std::string problems() const;

private:
    struct State;

    explicit RecordingSession(std::shared_ptr<State> state);
    LoadDataArguments recorded(LoadDataArguments arguments) const;

    std::shared_ptr<State> state_;
};

}  // namespace VanticRestKit::Testing
