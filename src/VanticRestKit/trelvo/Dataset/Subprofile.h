#pragma once

/// \file
/// `Subprofile`: one profile of a user.

#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/platform/date/Date.h>
#include <VanticRestKit/platform/error/AnyValue.h>
#include <VanticRestKit/trelvo/Dataset/DatasetContainer.h>
#include <VanticRestKit/Visibility.h>

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

namespace VanticRestKit {

/// One profile of a user: a view of a dataset of the namespace "profile". A property is empty if its value in the
/// dataset is absent or of another type. Two profiles are equal if their uids are equal.
class VRK_EXPORT Subprofile {
public:
    /// The arguments of the constructor.
    struct Arguments {
        /// The dataset that contains the profile.
        Required<DatasetContainer> datasetContainer;
    };
    /// `Subprofile::make({.datasetContainer = container})`. Empty if the container has another namespace.
    static std::optional<Subprofile> make(Arguments arguments);

    /// The id of the user.
    const std::string& uid() const noexcept { return container_.uid; }
    /// Key `parent_uid`; empty if absent or not a string.
    const std::optional<std::string>& parentUid() const noexcept { return container_.parentUid; }
    /// When the profile was created; empty if unknown.
    const std::optional<Date>& created() const noexcept { return container_.created; }
    /// When it last changed; empty if unknown.
    const std::optional<Date>& updated() const noexcept { return container_.updated; }

    /// The name to display; empty if absent or not a string.
    std::optional<std::string> displayName() const;
    /// The URL of the avatar's image.
    std::optional<std::string> avatar() const;
    /// The id of the avatar; empty if absent or not a whole number.
    std::optional<std::int64_t> avatarId() const;
    /// The text for screen readers; empty if absent or not a string.
    std::optional<std::string> avatarAccessibilityText() const;
    /// Whether this is the profile of a child; false if absent or not a boolean.
    bool isChild() const;
    /// The year of birth; empty if absent or not a whole number.
    std::optional<std::int64_t> birthYear() const;
    /// Key `channelFilter` of the dataset; empty if absent or not a string.
    std::optional<std::string> channelFilter() const;

    /// The arguments of `makeModifiedDataset`. A key whose argument is empty is not changed.
    struct Changes {
        /// For the key `displayName`.
        Required<std::optional<std::string>> newDisplayName;
        /// For the key `birthYear`.
        Required<std::optional<std::int64_t>> newBirthYear;
        /// For the key `channelFilter`.
        Required<std::optional<std::string>> newChannelFilter;
        /// For the key `avatarId`.
        Required<std::optional<std::int64_t>> newAvatarId;
        /// For the key `avatar`.
        Required<std::optional<std::string>> newAvatarURL;
        /// For the key `avatarAccessibilityText`.
        Required<std::optional<std::string>> newAvatarAccessibilityText;
    };
    /// The dataset of the profile with the changes applied. Keys cannot be removed in this way.
    Dictionary makeModifiedDataset(Changes changes) const;

    /// The argument of `makeModifiedDataset`.
    struct KeyValues {
        /// The values to add or replace.
        Required<Dictionary> newKeyValues;
    };
    /// The dataset of the profile with these values added or replaced.
    Dictionary makeModifiedDataset(KeyValues changes) const;

    /// Whether both have the same uid; nothing else is compared.
    friend bool operator==(const Subprofile& a, const Subprofile& b) noexcept { return a.uid() == b.uid(); }

private:
    explicit Subprofile(DatasetContainer container) : container_(std::move(container)) {}

    DatasetContainer container_;
};

}  // namespace VanticRestKit
