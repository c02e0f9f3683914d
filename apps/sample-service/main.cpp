#include <pthread.h>
#include <signal.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>

#include "Options.h"
#include "server/Instance.h"

using namespace VanticRestKit;

int main(int argc, char** argv) {
    const sample::Options options = sample::readOptions(argc, argv);

    // Blocked before the first thread starts, so that only the sigwait below receives the signals.
    sigset_t ends;
    sigemptyset(&ends);
    sigaddset(&ends, SIGTERM);
    sigaddset(&ends, SIGINT);
    pthread_sigmask(SIG_BLOCK, &ends, nullptr);
    if (options.endWithParent) prctl(PR_SET_PDEATHSIG, SIGTERM);

    sample::Instance service({.port = options.port,
                              .tls = options.tls,
                              .tokenSeconds = options.tokenSeconds,
                              .ownStreams = options.ownStreams,
                              .scenarios = options.scenarios},
                             [] { kill(getpid(), SIGTERM); });
    if (!service.start()) {
        std::fprintf(stderr, "sample-service: cannot listen on 127.0.0.1:%d\n", options.port);
        return 1;
    }

    // Written before the base URL is printed, so that a reader of that line finds the complete file.
    if (!options.authorityFile.empty()) {
        std::ofstream file(options.authorityFile, std::ios::binary);
        file << service.authority();
        if (!file.flush()) {
            std::fprintf(stderr, "sample-service: cannot write %s\n", options.authorityFile.c_str());
            return 1;
        }
    }
    std::printf("%s\n", service.baseURL().c_str());
    if (options.tls && options.authorityFile.empty()) std::printf("%s", service.authority().c_str());
    std::fflush(stdout);

    int received = 0;
    sigwait(&ends, &received);
    service.stop();
    return 0;
}
