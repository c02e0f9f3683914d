#pragma once

// Which page answers which request, and which requests are answered at all.

#include "Context.h"
#include "Http.h"
#include "User.h"

#include <cstdint>

namespace living_room {

/// The host without its server: every request that a browser makes comes in here. Used on the host's loop only.
class Routes {
public:
    struct Settings {
        /// The port of the server, which the Host of each request must name.
        std::uint16_t port = 0;
        /// The file of hls.js, for browsers that play no HLS; empty if there is none.
        std::string hlsFile{};
    };
    Routes(const Service& service, Settings settings);

    /// Answers `request`. Refused are requests that name another host (421), as those of a page that had its own name
    /// point here, and forms of other sites (403).
    Task<Answer> answer(Request request);

private:
    bool isNameOfThisHost(const std::string& host) const;
    /// The status with which it is refused, whatever it asks for; 0 if it is not.
    int problemOf(const Request& request) const;

    const Service& service_;
    const Settings settings_;
    Users users_;
};

}  // namespace living_room
