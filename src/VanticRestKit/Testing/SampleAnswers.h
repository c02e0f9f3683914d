#pragma once

/// \file
/// `SampleAnswers`: the answers of the sample service, without a socket.

#include <VanticRestKit/Testing/Answer.h>
#include <VanticRestKit/Testing/AskedRequest.h>

#include <map>
#include <memory>
#include <string>

namespace VanticRestKit::Testing {

/// All answers of the sample service, with its catalogue and its users, in memory. Copies share the data of users,
/// which exists as long as the last copy. Any thread.
///
/// ```cpp
/// ScriptedService service(executor);
/// service.on("GET /v2/home").answer(Answer::status(503));
/// service.on("/**").answerBy(SampleAnswers());     // all else
/// ```
class SampleAnswers {
public:
    SampleAnswers();

    /// The answer to a request; 404 if there is no such resource. The URLs of images begin with "https://service.test".
    Answer operator()(const AskedRequest& asked) const;

    /// The answer to a request given by its parts: `ask("GET", "/v2/video/HL0101")`.
    Answer ask(const std::string& method, const std::string& target,
               const std::map<std::string, std::string>& headers = {}, const std::string& body = {}) const;

private:
    struct Service;

    std::shared_ptr<const Service> service_;
};

}  // namespace VanticRestKit::Testing
