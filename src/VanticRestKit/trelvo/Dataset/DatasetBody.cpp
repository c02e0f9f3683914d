#include <VanticRestKit/trelvo/Dataset/DatasetBody.h>

#include <VanticRestKit/platform/text/PercentEncoding.h>

namespace VanticRestKit {

namespace {

struct FlatDataset {
    const Dictionary& values;

    void encode(JSONObjectWriter& writer) const { encodeDataset(values, writer); }
};

}  // namespace

void encodeDataset(const Dictionary& dataset, JSONObjectWriter& writer) {
    for (const auto& [key, value] : dataset) {
        if (const std::string* text = value.text()) {
            writer.write(key, *text);
        } else if (const std::int64_t* number = value.integer()) {
            writer.write(key, *number);
        } else if (const bool* truth = value.boolean()) {
            writer.write(key, *truth);
        } else if (const double* fraction = value.number()) {
            writer.write(key, *fraction);
        }
    }
}

std::optional<Data> datasetBody(const Dictionary& dataset) {
    const Result<Data, Error> json = JSONEncoder().encode(FlatDataset{dataset});
    if (!json) return std::nullopt;
    return Data("dataset=" + paramsEncoded(json->view()));
}

}  // namespace VanticRestKit
