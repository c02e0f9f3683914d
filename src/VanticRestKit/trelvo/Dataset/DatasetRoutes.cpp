#include <VanticRestKit/trelvo/Dataset/DatasetRoutes.h>

#include <VanticRestKit/platform/text/detail/PercentEncoding.h>

namespace VanticRestKit {

namespace {

/// Writes each value of the dataset under its key: strings, integers, booleans and numbers with a fraction. Other
/// values are omitted.
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

struct FlatDataset {
    const Dictionary& values;

    void encode(JSONObjectWriter& writer) const { encodeDataset(values, writer); }
};

/// "dataset=" and the dataset as a percent-encoded JSON object. Empty if a number is not finite or a string is not
/// UTF-8.
std::optional<Data> datasetBody(const Dictionary& dataset) {
    const Result<Data, Error> json = JSONEncoder().encode(FlatDataset{dataset});
    if (!json) return std::nullopt;
    return Data("dataset=" + detail::paramsEncoded(json->view()));
}

}  // namespace

std::optional<Data> CreateDatasetURI::postData() const { return datasetBody(dataset); }

void CreateDatasetURI::encode(JSONObjectWriter& writer) const { encodeDataset(dataset, writer); }

std::optional<Data> UpdateDatasetURI::postData() const { return datasetBody(dataset); }

void UpdateDatasetURI::encode(JSONObjectWriter& writer) const { encodeDataset(dataset, writer); }

}  // namespace VanticRestKit
