#pragma once

#include "HostContext.h"
#include "ServiceControl.h"

namespace demo {

/// The data for every chapter: the host's context, and the controls of the sample service.
struct Stage {
    HostContext context;
    ServiceControl service;
};

// Each chapter is a function in its own file in chapters/. It loads and prints something, and returns false if the
// result is not as expected. main.cpp calls them in order.
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
