// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxLoginItem.h"

#include "base/AtomicFile.h"
#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <QProcess>

#include <cstdlib>
#include <fstream>

namespace orrinvale
{

namespace fs = std::filesystem;

namespace
{

struct LoginItemTest : testing::Test {
    LoginItemTest() { file = folder / "autostart" / "orrinvale.desktop"; }

    LinuxLoginItem item(const std::string& executable = "/usr/bin/orrinvale") const
    {
        return LinuxLoginItem(folder / "autostart", executable);
    }

    TemporaryFolder temporary;
    const fs::path& folder = temporary.path;
    fs::path file;
};

TEST_F(LoginItemTest, RegisteringWritesAnEntryThatTheDesktopsValidatorAccepts)
{
    for (const auto* executable : {"/usr/bin/orrinvale", "/home/anna/my \"tools\" $5 100% \\ `x`/orrinvale"}) {
        EXPECT_EQ(item(executable).registerApplication(), std::nullopt);
        EXPECT_EQ(QProcess::execute(QStringLiteral("desktop-file-validate"), {QString::fromStdString(file.string())}),
                  0)
            << executable;
    }
}

TEST_F(LoginItemTest, UnregisteringRemovesItAndMayBeDoneTwice)
{
    auto entry = item();
    entry.registerApplication();
    EXPECT_EQ(entry.unregisterApplication(), std::nullopt);
    EXPECT_FALSE(fs::exists(file));
    EXPECT_EQ(entry.unregisterApplication(), std::nullopt);
}

TEST_F(LoginItemTest, AFolderThatCannotBeMadeIsDescribedInWords)
{
    std::ofstream(folder / "autostart") << "a file";
    const auto error = item().registerApplication();
    ASSERT_TRUE(error);
    EXPECT_EQ(*error, "Not a directory");
}

TEST_F(LoginItemTest, AnEntryThatCannotBeReplacedIsAnError)
{
    fs::create_directories(file / "in the way");
    EXPECT_TRUE(item().registerApplication());
}

} // namespace

} // namespace orrinvale
