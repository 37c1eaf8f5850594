// The window's tests, with one application for all of them and no display.
#include <gtest/gtest.h>

#include <cstdlib>

#include "app/Application.h"
#include "app/Look.h"

int main(int argc, char** argv) {
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    testing::InitGoogleTest(&argc, argv);
    easel::app::Application application(argc, argv);
    easel::app::applyLook(false);
    return RUN_ALL_TESTS();
}
