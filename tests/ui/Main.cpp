#include "ui/parts/Environment.h"

#include <QGuiApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Places in the pictures are counted at one pixel a point.
    qunsetenv("QT_SCALE_FACTOR");
    larkspan::ui::prepareEnvironment();
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
