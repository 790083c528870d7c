// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxApplicationSupport.h"

#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

namespace orrinvale
{

namespace fs = std::filesystem;

namespace
{

struct ApplicationSupportTest : testing::Test {
    ApplicationSupportTest()
    {
        ::setenv("HOME", home.c_str(), 1);
        for (const auto* name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR"})
            ::unsetenv(name);
    }

    void userDirs(const std::string& text)
    {
        fs::create_directories(home / ".config");
        std::ofstream(home / ".config" / "user-dirs.dirs") << text;
    }

    TemporaryFolder temporary;
    const fs::path& home = temporary.path;
    LinuxApplicationSupport support;
};

TEST_F(ApplicationSupportTest, WithoutVariablesTheFoldersAreThoseOfTheHome)
{
    EXPECT_EQ(support.homeDirectory(), home);
    EXPECT_EQ(support.configDirectory(), home / ".config");
    EXPECT_EQ(support.applicationSupportDirectory(), home / ".local/share");
    EXPECT_EQ(support.runtimeDirectory(), std::nullopt);
}

TEST_F(ApplicationSupportTest, RelativeVariablesAreIgnored)
{
    ::setenv("XDG_CONFIG_HOME", "config", 1);
    ::setenv("XDG_DATA_HOME", "./data", 1);
    EXPECT_EQ(support.configDirectory(), home / ".config");
    EXPECT_EQ(support.applicationSupportDirectory(), home / ".local/share");
    ::setenv("XDG_DATA_HOME", "/elsewhere", 1);
    EXPECT_EQ(support.applicationSupportDirectory(), fs::path("/elsewhere"));
}

TEST_F(ApplicationSupportTest, WithoutUserDirectoriesThereIsNoDownloadsFolder)
{
    EXPECT_EQ(support.downloadsDirectory(), std::nullopt);
}

struct Row {
    const char* name;
    std::string text;
    const char* folder; // relative to the home; nullptr: none
};

class Downloads : public testing::WithParamInterface<Row>, public ApplicationSupportTest
{
};

TEST_P(Downloads, OfTheUserDirectories)
{
    userDirs(GetParam().text);
    const auto expected = GetParam().folder ? std::optional(home / GetParam().folder) : std::nullopt;
    EXPECT_EQ(support.downloadsDirectory(), expected);
}

INSTANTIATE_TEST_SUITE_P(
    Files, Downloads,
    testing::Values(Row{"Plain",
                        "# comment\nXDG_DESKTOP_DIR=\"$HOME/Desktop\"\nXDG_DOWNLOAD_DIR=\"$HOME/Téléchargements\"\n",
                        "Téléchargements"},
                    Row{"HomeMeansNone", "XDG_DOWNLOAD_DIR=\"$HOME/\"\n", nullptr},
                    Row{"Absolute", "XDG_DOWNLOAD_DIR=\"/srv/in\"", "/srv/in"},
                    Row{"Commented", "#XDG_DOWNLOAD_DIR=\"$HOME/a\"\n", nullptr},
                    Row{"Escaped", "XDG_DOWNLOAD_DIR=\"$HOME/a \\\"b\\\"\"\n", "a \"b\""},
                    Row{"LastCounts", "XDG_DOWNLOAD_DIR=\"$HOME/a\"\nXDG_DOWNLOAD_DIR=\"$HOME/b\"\n", "b"},
                    Row{"Unquoted", "XDG_DOWNLOAD_DIR=$HOME/a\n", nullptr},
                    Row{"Relative", "XDG_DOWNLOAD_DIR=\"a\"\n", nullptr},
                    Row{"Binary", std::string("\0\xFF=\"", 4), nullptr}),
    [](const auto& row) { return row.param.name; });

} // namespace

} // namespace orrinvale
