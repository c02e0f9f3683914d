#pragma once

/// \file
/// The faults of a document as a string, for comparison in tests.

#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/json/Diagnosis.h>

#include <string>

namespace VanticRestKit::test {

/// One fault per line, in order: "/_links/show/id lenient: UInt, string, empty".
template <class T>
std::string faultText(const std::string& json) {
    std::string text;
    for (const Fault& fault : diagnose<T>(Data(json)).faults) {
        for (const CodingKey& step : fault.path) {
            text += "/" + (step.key() != nullptr ? *step.key() : std::to_string(*step.index()));
        }
        text += " " + std::string(nameOf(fault.presence)) + ": " + fault.expected + ", " + fault.found +
                ", " + fault.became + "\n";
    }
    return text;
}

}  // namespace VanticRestKit::test
