#include "Chapters.h"
#include "ItemPrinting.h"
#include "Loading.h"
#include "Printing.h"

#include <VanticRestKit/lumeno/Categories/Category.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/ProductAlert/ProductAlert.h>

namespace demo {

using namespace VanticRestKit;

bool showHomeScreen(const Stage& stage) {
    printHeading("The home screen");
    const auto home = fetched(Endpoint::Home(stage.context));
    if (!home) return false;
    if (home->alertId) {
        const auto alert = fetched(Endpoint::ProductAlert({.alertId = *home->alertId}, stage.context));
        if (alert) printField("notice", alert->title);
    }
    printRow(home->featuredCollection);
    for (const auto& row : home->collections) printRow(row);
    return home->collections.size() == 8;
}

}  // namespace demo
