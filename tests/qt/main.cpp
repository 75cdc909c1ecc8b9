// Runs the tests of the desktop host without a screen.
#include "host/qt/font_preparation.h"

#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    qputenv("PULSE_SERVER", "unix:/nowhere"); // nobody's loudspeakers, and no sound server started for us
    testing::InitGoogleTest(&argc, argv);
    Q_INIT_RESOURCE(tavo_pictures);
    const QApplication application(argc, argv);
    if (!tavo::qt::PrepareFonts()) {
        return 1;
    }
    return RUN_ALL_TESTS();
}
