#include <pthread.h>
#include <signal.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <optional>

#include "Options.h"
#include "routes/Table.h"
#include "routes/UserTable.h"
#include "server/Certificate.h"
#include "server/Service.h"

namespace {

std::vector<sample::Route> joined(std::vector<sample::Route> some, std::vector<sample::Route> others) {
    std::move(others.begin(), others.end(), std::back_inserter(some));
    return some;
}

}  // namespace

int main(int argc, char** argv) {
    const sample::Options options = sample::readOptions(argc, argv);

    // Blocked before the first thread starts, so that only the sigwait below sees them.
    sigset_t ends;
    sigemptyset(&ends);
    sigaddset(&ends, SIGTERM);
    sigaddset(&ends, SIGINT);
    pthread_sigmask(SIG_BLOCK, &ends, nullptr);
    if (options.endWithParent) prctl(PR_SET_PDEATHSIG, SIGTERM);

    std::optional<sample::Certificate> certificate;
    if (options.tls) certificate = sample::makeCertificate();

    sample::Faults faults;
    sample::RequestLog log;
    sample::Users users(options.tokenSeconds);
    sample::Service service(
        sample::Router(joined(sample::serviceRoutes(), sample::userRoutes(users))),
        sample::Router(joined(sample::controlRoutes(faults, log), sample::userControlRoutes(users))), faults,
        log, [] { kill(getpid(), SIGTERM); });
    if (!service.start(options.port, certificate ? &*certificate : nullptr)) {
        std::fprintf(stderr, "sample-service: cannot listen on 127.0.0.1:%d\n", options.port);
        return 1;
    }

    // Written before the base URL: whoever has read that line finds the file complete.
    if (!options.authorityFile.empty()) {
        std::ofstream file(options.authorityFile, std::ios::binary);
        file << certificate->authority;
        if (!file.flush()) {
            std::fprintf(stderr, "sample-service: cannot write %s\n", options.authorityFile.c_str());
            return 1;
        }
    }
    std::printf("%s://127.0.0.1:%d\n", options.tls ? "https" : "http", service.port());
    if (options.tls && options.authorityFile.empty()) std::printf("%s", certificate->authority.c_str());
    std::fflush(stdout);

    int received = 0;
    sigwait(&ends, &received);
    service.stop();
    return 0;
}
