#pragma once

/// \file
/// The rules of the fields of a dataset's container.

#include <VanticRestKit/trelvo/Dataset/DatasetContainer.h>

#include <trelvo/Common/Shapes.h>

namespace VanticRestKit::test {

/// The free-form object, with the values that are kept and those that are omitted.
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
            .minimal = R"({"uid":"u","dataset":{}})",
            .fields = {{"uid", "uid", Strictness::required, text()},
                       {"parentUid", "parent_uid", Strictness::lenient, text()},
                       {"oid", "oid", Strictness::lenient, text()},
                       {"source", "source", Strictness::lenient, text()},
                       {"namespace", "namespace", Strictness::lenient, text()},
                       {"dataset", "dataset", Strictness::required, freeFormObject()},
                       {"created", "created", Strictness::lenient, isoDateText()},
                       {"updated", "updated", Strictness::lenient, isoDateText()}}};
}

}  // namespace VanticRestKit::test
