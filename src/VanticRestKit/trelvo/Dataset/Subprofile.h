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
    struct Arguments {
        Required<DatasetContainer> datasetContainer;
    };
    /// `Subprofile::make({.datasetContainer = container})`. Empty where the container is of another namespace.
    static std::optional<Subprofile> make(Arguments arguments);

    const std::string& uid() const noexcept { return container_.uid; }
    const std::optional<std::string>& parentUid() const noexcept { return container_.parentUid; }
    const std::optional<Date>& created() const noexcept { return container_.created; }
    const std::optional<Date>& updated() const noexcept { return container_.updated; }

    std::optional<std::string> displayName() const;
    /// The address of the avatar's picture.
    std::optional<std::string> avatar() const;
    std::optional<std::int64_t> avatarId() const;
    std::optional<std::string> avatarAccessibilityText() const;
    /// False also where the dataset does not say by a truth value.
    bool isChild() const;
    std::optional<std::int64_t> birthYear() const;
    std::optional<std::string> channelFilter() const;

    struct Changes {
        Required<std::optional<std::string>> newDisplayName;
        Required<std::optional<std::int64_t>> newBirthYear;
        Required<std::optional<std::string>> newChannelFilter;
        Required<std::optional<std::int64_t>> newAvatarId;
        Required<std::optional<std::string>> newAvatarURL;
        Required<std::optional<std::string>> newAvatarAccessibilityText;
    };
    /// The profile's dataset with every change that is not empty. Nothing can be removed from it in this way.
    Dictionary makeModifiedDataset(Changes changes) const;

    struct KeyValues {
        Required<Dictionary> newKeyValues;
    };
    /// The profile's dataset with these values, which win over those that it has.
    Dictionary makeModifiedDataset(KeyValues changes) const;

    friend bool operator==(const Subprofile& a, const Subprofile& b) noexcept { return a.uid() == b.uid(); }

private:
    explicit Subprofile(DatasetContainer container) : container_(std::move(container)) {}

    DatasetContainer container_;
};

}  // namespace VanticRestKit
