// The costs for a small device: memory and start time of a process that uses the library, compared with one that uses
// only libcurl. Each figure is the median of several processes.
//   device_bench [--quick]

#include "../decode/Documents.h"
#include "../load/Server.h"
#include "../support/Measure.h"
#include "FirstRequest.h"
#include "HostMemory.h"

#include <support/Certificates.h>
#include <support/Nghttpx.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace VanticRestKit::bench {

namespace {

const std::string library = VRK_DEVICE_LIBRARY;
const std::string staticLibrary = VRK_DEVICE_LIBRARY_STATIC;
const std::string raw = VRK_DEVICE_RAW;

/// The lines that the program prints.
std::vector<HostMemory> printedBy(const std::string& command) {
    std::FILE* const output = popen(command.c_str(), "r");
    if (output == nullptr) std::exit(1);
    std::vector<HostMemory> printed;
    HostMemory one;
    while (std::fscanf(output, "%ld %ld %ld", &one.resident, &one.unshared, &one.allocated) == 3) {
        printed.push_back(one);
    }
    if (pclose(output) != 0) {
        std::fprintf(stderr, "failed: %s\n", command.c_str());
        std::exit(1);
    }
    return printed;
}

double megabytes(double bytes) { return bytes / 1048576; }
double kilobytes(double bytes) { return bytes / 1024; }

/// The values of one figure in several processes.
struct Medians {
    std::vector<double> values;

    void add(double value) { values.push_back(value); }
    double median() const { return Times{values, {}}.median(); }
};

/// The memory of several processes of one program.
struct Footprint {
    Medians resident;
    Medians unshared;

    void add(const HostMemory& memory) {
        resident.add(megabytes(static_cast<double>(memory.resident)));
        unshared.add(megabytes(static_cast<double>(memory.unshared)));
    }
};

void memoryWithHome(const std::string& url, std::size_t processes) {
    Footprint shared, archive, theirs;
    for (std::size_t i = 0; i < processes; ++i) {
        shared.add(printedBy(library + " home " + url).at(0));
        archive.add(printedBy(staticLibrary + " home " + url).at(0));
        theirs.add(printedBy(raw + " home " + url + "/home").at(0));
    }
    const auto row = [&](const std::string& name, const Footprint& own) {
        report("memory with a home screen of 1 MB held" + name + ", over raw libcurl's with its body, in MB",
               figure(own.resident.median() - theirs.resident.median()), "", "4",
               figure(own.resident.median(), 1) + ", raw libcurl " + figure(theirs.resident.median(), 1) +
                   "; not shared " + figure(own.unshared.median(), 1) + ", raw libcurl " +
                   figure(theirs.unshared.median(), 1));
    };
    row("", shared);
    row(", static library", archive);
}

/// The memory of each further connection, in KB.
double heapOfEach(const HostMemory& one, const HostMemory& many, int further) {
    return kilobytes(static_cast<double>(many.allocated - one.allocated)) / further;
}

void memoryOfConnections(const std::string& name, const std::string& url, const std::string& roots,
                         std::size_t processes) {
    constexpr int count = 48;
    const std::string task = " connections " + url + " " + std::to_string(count) + " '" + roots + "'";
    Medians ours, withHandles, theirs;
    for (std::size_t i = 0; i < processes; ++i) {
        const auto own = printedBy(library + task);
        const auto others = printedBy(raw + task);
        ours.add(heapOfEach(own.at(0), own.at(1), count - 1));
        withHandles.add(heapOfEach(others.at(0), others.at(1), count - 1));
        theirs.add(heapOfEach(others.at(0), others.at(2), count - 1));
    }
    report("memory of an idle connection, " + name + ", over raw libcurl's, in KB",
           figure(ours.median() - theirs.median(), 1), "", "",
           figure(ours.median(), 1) + ", raw libcurl " + figure(theirs.median(), 1) + ", " +
               figure(withHandles.median(), 1) + " if it keeps its handles too");
}

void firstRequests(const std::string& name, bool isHTTPS, std::size_t processes) {
    struct Program {
        std::string name;
        std::string path;
        Medians wall{};
        Medians processor{};
    };
    std::array programs{Program{"", library}, Program{", static library", staticLibrary}, Program{"", raw}};
    const FirstRequests server;
    for (const Program& program : programs) server.of(program.path, isHTTPS);
    for (std::size_t i = 0; i < processes; ++i) {
        for (Program& program : programs) {
            const FirstRequest first = server.of(program.path, isHTTPS);
            program.wall.add(first.wall * 1000);
            program.processor.add(first.processor * 1000);
        }
    }
    const Program& baseline = programs.back();
    for (const Program& program : {programs[0], programs[1]}) {
        report("from the start of a process to " + name + program.name + ", in ms",
               figure(program.wall.median()), "", isHTTPS ? "" : "5",
               "raw libcurl " + figure(baseline.wall.median()) + "; processor time " +
                   figure(program.processor.median()) + ", raw libcurl " +
                   figure(baseline.processor.median()));
    }
}

}  // namespace

}  // namespace VanticRestKit::bench

int main(int count, char** arguments) {
    using namespace VanticRestKit;
    using namespace VanticRestKit::bench;
    const bool isQuick = count > 1 && std::string_view(arguments[1]) == "--quick";
    const std::size_t processes = isQuick ? 3 : 21;

    const Server home(homeDocument());
    const Server small("[]");
    const test::CertificateAuthority root;
    const test::TemporaryFile roots(root.pem());
    const test::Nghttpx secured(small.port(), root.issue());
    if (!secured.isRunning()) return 1;
    const std::string http = "http://127.0.0.1:";

    memoryWithHome(http + std::to_string(home.port()), processes);
    memoryOfConnections("http", http + std::to_string(small.port()), "", processes);
    memoryOfConnections("https", "https://127.0.0.1:" + std::to_string(secured.port()), roots.path(),
                        processes);
    firstRequests("its first request", false, isQuick ? 5 : 101);
    firstRequests("its first TLS greeting", true, isQuick ? 3 : 51);
}
