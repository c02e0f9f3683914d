#pragma once

/// \file
/// What the fields of a dataset's container are held to.

#include <VanticRestKit/trelvo/Dataset/DatasetContainer.h>

#include <trelvo/Common/Shapes.h>

namespace VanticRestKit::test {

/// The free-form object: what travels in it, and what is left out.
inline Shape freeFormObject() {
    return {.empty = "{}",
            .fits = {{R"({"text":"$","int":-7,"bool":true,"double":1.5})",
                      R"({"bool":true,"double":1.5,"int":-7,"text":"$"})"},
                     {"{}", "{}"},
                     {R"({"none":null,"list":["x"],"object":{"a":1},"kept":"$"})", R"({"kept":"$"})"}},
            .unfit = {{"7"}, {"true"}, {"\"{}\""}, {"[]"}, {"[{}]"}, {"{\"\\ud800\":1}", "dataCorrupted"}}};
}

inline EntityRules datasetContainers() {
    return {.type = decodable<DatasetContainer>,
            .least = R"({"uid":"u","dataset":{}})",
            .fields = {{"uid", "uid", Word::required, text()},
                       {"parentUid", "parent_uid", Word::lenient, text()},
                       {"oid", "oid", Word::lenient, text()},
                       {"source", "source", Word::lenient, text()},
                       {"namespace", "namespace", Word::lenient, text()},
                       {"dataset", "dataset", Word::required, freeFormObject()},
                       {"created", "created", Word::lenient, isoDateText()},
                       {"updated", "updated", Word::lenient, isoDateText()}}};
}

}  // namespace VanticRestKit::test
