// Two values of an entity are equal exactly if their texts are.

#include <golden/Documents.h>

#include <entities/DecodableTypes.h>
#include <platform/json/SampleDocument.h>
#include <support/TemporaryZone.h>
#include <VanticRestKit/platform/json/JSONDecoder.h>
#include <VanticRestKit/platform/json/ValueText.h>

#include <memory>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace VanticRestKit {
namespace {

template <class T>
void expectEqualIfTextsAre(const std::vector<T>& values, std::string_view type) {
    for (const T& a : values) {
        for (const T& b : values) EXPECT_EQ(a == b, valueText(a) == valueText(b)) << type;
    }
}

TEST(Equality, OfGoldenDocumentsIsThatOfTheirTexts) {
    const test::TemporaryZone utc("UTC0");
    const std::vector<test::GoldenDocument> documents = test::goldenDocuments();
    visitRootTypes([&documents]<class T>(std::type_identity<T>, std::string_view name) {
        std::vector<T> values;
        for (const test::GoldenDocument& document : documents) {
            if (document.type.name != name) continue;
            Result<T, Error> value = JSONDecoder().decode<T>(Data(document.json));
            if (value) values.push_back(std::move(value).value());
        }
        expectEqualIfTextsAre(values, name);
    });
}

TEST(Equality, OfNestedEntitiesIsThatOfTheirTexts) {
    const test::TemporaryZone utc("UTC0");
    visitNestedTypes([]<class T>(std::type_identity<T>, std::string_view name) {
        const Result<T, Error> sample = JSONDecoder().decode<T>(Data(test::sampleDocument(planOf<T>())));
        ASSERT_TRUE(sample) << name;
        // Not all of these types have a default constructor for hosts.
        const std::shared_ptr<void> made = test::decodable<T>.make();
        const T& fresh = *static_cast<const T*>(made.get());
        EXPECT_NE(valueText(*sample), valueText(fresh)) << name;
        expectEqualIfTextsAre<T>({*sample, fresh}, name);
    });
}

}  // namespace
}  // namespace VanticRestKit
