// The main of the widget test programs: they need a QApplication before the first test runs.
#include <gtest/gtest.h>

#include "support/qt_app.h"

int main(int argc, char** argv) {
    ensureApp();
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
