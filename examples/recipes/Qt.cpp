// The event loop of Qt: completions run on the thread of the application. Built if Qt 6 is installed.
//   recipe_qt BASE-URL

#include "Host.h"

#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>

#include <QCoreApplication>
#include <QMetaObject>

#include <chrono>
#include <cstdio>
#include <memory>
#include <utility>

using namespace VanticRestKit;
using namespace std::chrono_literals;

int main(int argc, char** argv) {
    const auto host = recipes::Host::of(argc, argv);
    if (!host) return 2;
    QCoreApplication application(argc, argv);
    const DispatchQueue ui = DispatchQueue::over("Qt", [&application](Block block) {
        auto held = std::make_shared<Block>(std::move(block));
        QMetaObject::invokeMethod(
            &application, [held] { (*held)(); }, Qt::QueuedConnection);
    });

    const auto time = Endpoint::Time(*host);
    const Cancellable load = time->start({.on = ui, .deadline = 5s}, [](Result<double, LoaderError> result) {
        if (result) std::printf("%.0f\n", *result);
        QCoreApplication::exit(result ? 0 : 1);
    });
    return QCoreApplication::exec();
}
