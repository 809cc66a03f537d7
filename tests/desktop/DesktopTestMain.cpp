// Runs a GoogleTest program inside a Qt Gui application where there is a display, and a plain one where there is none.
#include "tests/desktop/DesktopUser.h"

#include <QGuiApplication>

#include <gtest/gtest.h>

#include <memory>

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    const bool hasDisplay = !vantro::desktop::missingDisplay();
    const std::unique_ptr<QCoreApplication> application =
        hasDisplay ? std::make_unique<QGuiApplication>(argc, argv) : std::make_unique<QCoreApplication>(argc, argv);
    return RUN_ALL_TESTS();
}
