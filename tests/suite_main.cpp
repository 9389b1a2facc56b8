#include "app/programroutes.h"
#include "core/application.h"

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    hb::Application app(argc, argv);
    hb::registerProgramRoutes();
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
