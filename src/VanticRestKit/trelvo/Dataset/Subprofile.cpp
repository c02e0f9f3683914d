#include <VanticRestKit/trelvo/Dataset/Subprofile.h>

#include <string_view>

namespace VanticRestKit {

namespace {

const AnyValue* valueIn(const Dictionary& dataset, std::string_view key) {
    const auto entry = dataset.find(key);
    return entry == dataset.end() ? nullptr : &entry->second;
}

std::optional<std::string> textIn(const Dictionary& dataset, std::string_view key) {
    const AnyValue* const value = valueIn(dataset, key);
    if (value == nullptr || value->text() == nullptr) return std::nullopt;
    return *value->text();
}

std::optional<std::int64_t> integerIn(const Dictionary& dataset, std::string_view key) {
    const AnyValue* const value = valueIn(dataset, key);
    if (value == nullptr || value->integer() == nullptr) return std::nullopt;
    return *value->integer();
}

template <class T>
void put(Dictionary& dataset, const char* key, const std::optional<T>& value) {
    if (value) dataset.insert_or_assign(key, AnyValue(*value));
}

}  // namespace

std::optional<Subprofile> Subprofile::make(Arguments arguments) {
    if (arguments.datasetContainer.value().namespace_ != "profile") return std::nullopt;
    return Subprofile(std::move(arguments.datasetContainer).value());
}

std::optional<std::string> Subprofile::displayName() const {
    return textIn(container_.dataset, "displayName");
}

std::optional<std::string> Subprofile::avatar() const { return textIn(container_.dataset, "avatar"); }

std::optional<std::int64_t> Subprofile::avatarId() const { return integerIn(container_.dataset, "avatarId"); }

std::optional<std::string> Subprofile::avatarAccessibilityText() const {
    return textIn(container_.dataset, "avatarAccessibilityText");
}

bool Subprofile::isChild() const {
    const AnyValue* const value = valueIn(container_.dataset, "isChild");
    return value != nullptr && value->boolean() != nullptr && *value->boolean();
}

std::optional<std::int64_t> Subprofile::birthYear() const {
    return integerIn(container_.dataset, "birthYear");
}

std::optional<std::string> Subprofile::channelFilter() const {
    return textIn(container_.dataset, "channelFilter");
}

Dictionary Subprofile::makeModifiedDataset(Changes changes) const {
    Dictionary dataset = container_.dataset;
    put(dataset, "displayName", changes.newDisplayName.value());
    put(dataset, "birthYear", changes.newBirthYear.value());
    put(dataset, "channelFilter", changes.newChannelFilter.value());
    put(dataset, "avatarId", changes.newAvatarId.value());
    put(dataset, "avatar", changes.newAvatarURL.value());
    put(dataset, "avatarAccessibilityText", changes.newAvatarAccessibilityText.value());
    return dataset;
}

Dictionary Subprofile::makeModifiedDataset(KeyValues changes) const {
    Dictionary dataset = std::move(changes.newKeyValues).value();
    // `insert` does not replace existing keys, so the new values take precedence.
    dataset.insert(container_.dataset.begin(), container_.dataset.end());
    return dataset;
}

}  // namespace VanticRestKit
