#pragma once

// The people who watch: accounts, their profiles and their faces.

#include "Pages.h"

#include <string>
#include <vector>

namespace living_room {

struct ViewPerson {
    /// What a form names the person by.
    std::string uid{};
    std::string name{};
    /// The address of a picture at this host; empty if there is none.
    std::string face{};
    /// Whether this is the profile in use.
    bool isChosen = false;
};

/// Those who may sign in at a sample service, which takes any name.
VanticRestKit::Task<std::vector<ViewPerson>> suggestedPeople(const Visit& visit);

/// The profiles of the account that is signed in.
VanticRestKit::Task<Loaded<std::vector<ViewPerson>>> profilesOf(const Visit& visit);

/// Makes a profile of the user who was just signed in or chosen, unless there is one.
VanticRestKit::Task<Loaded<void>> makeProfile(const Visit& visit);

}  // namespace living_room
