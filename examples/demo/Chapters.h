#pragma once

#include "HostContext.h"
#include "ServiceControl.h"

namespace demo {

/// What every chapter has: the host's context, and the service's own controls.
struct Stage {
    HostContext context;
    ServiceControl service;
};

// A chapter is one function in a file of its own in chapters/. It loads, prints, and returns false where
// something was not as it has to be. main.cpp tells their order.
bool showTimeAndAvatars(const Stage& stage);
bool showHomeScreen(const Stage& stage);
bool showCollection(const Stage& stage);
bool showShowAndSeries(const Stage& stage);
bool showSearch(const Stage& stage);
bool showNowAndNext(const Stage& stage);
bool showVideos(const Stage& stage);
bool showUser(const Stage& stage);
bool showRefusedTokens(const Stage& stage);
bool showOddHomeScreen(const Stage& stage);
bool showFailures(const Stage& stage);

}  // namespace demo
