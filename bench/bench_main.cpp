#include "app/programroutes.h"
#include "core/application.h"
#include "platform/clock.h"

#include <benchmark/benchmark.h>
#include <gtest/gtest.h>

#include <cstdio>

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
    // The benchmarks drive the windows with the tests' helpers; a check that failed there means a figure
    // measured something other than the work it names.
    if (testing::UnitTest::GetInstance()->ad_hoc_test_result().Failed()) {
        std::fprintf(stderr, "A benchmark's own checks failed; its figures do not stand.\n");
        return 1;
    }
    return 0;
}
