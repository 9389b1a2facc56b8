#include "app/programroutes.h"
#include "core/application.h"
#include "platform/clock.h"

#include <benchmark/benchmark.h>

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    hb::Application app(argc, argv);
    hb::registerProgramRoutes();
    hb::clock::pin(QDateTime(QDate(2026, 11, 22), QTime(10, 0)));
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
