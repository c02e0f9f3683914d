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

/// One profile of a user: a view over a dataset of the namespace "profile". A value of the dataset that is of
/// another type than its property is empty. Two profiles are equal where their uids are.
class VRK_EXPORT Subprofile {
public:
    /// The arguments, by label.
    struct Arguments {
        /// The dataset to read as a profile.
        Required<DatasetContainer> datasetContainer;
    };
    /// `Subprofile::make({.datasetContainer = container})`. Empty where the container is of another namespace.
    static std::optional<Subprofile> make(Arguments arguments);

    /// The id of the user.
    const std::string& uid() const noexcept { return container_.uid; }
    /// Key `parent_uid`; empty if absent or not a string.
    const std::optional<std::string>& parentUid() const noexcept { return container_.parentUid; }
    /// When the profile was created; empty if unknown.
    const std::optional<Date>& created() const noexcept { return container_.created; }
    /// When it last changed; empty if unknown.
    const std::optional<Date>& updated() const noexcept { return container_.updated; }

    /// The name to show; empty if absent or not a string.
    std::optional<std::string> displayName() const;
    /// The address of the avatar's picture.
    std::optional<std::string> avatar() const;
    /// The id of the avatar; empty if absent or not a whole number.
    std::optional<std::int64_t> avatarId() const;
    /// The text of the avatar for screen readers; empty if absent or not a string.
    std::optional<std::string> avatarAccessibilityText() const;
    /// False also where the dataset does not say by a truth value.
    bool isChild() const;
    /// The year of birth; empty if absent or not a whole number.
    std::optional<std::int64_t> birthYear() const;
    /// Key `channelFilter` of the dataset; empty if absent or not a string.
    std::optional<std::string> channelFilter() const;

    /// The arguments of `makeModifiedDataset`. An empty one leaves its key as it is.
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
    /// The profile's dataset with every change that is not empty. Nothing can be removed from it in this way.
    Dictionary makeModifiedDataset(Changes changes) const;

    /// The argument of `makeModifiedDataset`.
    struct KeyValues {
        /// Values that are added, or replace those of the same key.
        Required<Dictionary> newKeyValues;
    };
    /// The profile's dataset with these values, which win over those that it has.
    Dictionary makeModifiedDataset(KeyValues changes) const;

    /// Whether both are of one user; nothing else is compared.
    friend bool operator==(const Subprofile& a, const Subprofile& b) noexcept { return a.uid() == b.uid(); }

private:
    explicit Subprofile(DatasetContainer container) : container_(std::move(container)) {}

    DatasetContainer container_;
};

}  // namespace VanticRestKit
