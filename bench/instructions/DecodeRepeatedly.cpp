// Decodes a list of 200 videos repeatedly, to count instructions. The difference between two numbers of rounds excludes
// everything that happens only once.
//   decode_repeatedly ROUNDS      prints the size of the document in bytes

#include "../decode/Documents.h"

#include <VanticRestKit/lumeno/Video/VideoList.h>
#include <VanticRestKit/platform/json/JSONDecoder.h>

#include <cstdio>
#include <cstdlib>

int main(int count, char** arguments) {
    using namespace VanticRestKit;
    const Data document(bench::videoListDocument(200, false));
    const long rounds = count == 2 ? std::strtol(arguments[1], nullptr, 10) : 1;
    for (long round = 0; round < rounds; ++round) {
        if (!JSONDecoder().decode<VideoList>(document)) return 1;
    }
    std::printf("bytes %zu\n", document.size());
    return 0;
}
