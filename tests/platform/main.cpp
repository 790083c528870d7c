// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include <QCoreApplication>

#include <gtest/gtest.h>

// Adapters need Qt's event loop: every platform test runs inside an application object.
int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
