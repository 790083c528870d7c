// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxUserDefaults.h"

#include "base/AtomicFile.h"

#include <gtest/gtest.h>

#include <cmath>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <random>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace orrinvale
{

namespace fs = std::filesystem;
using namespace std::chrono_literals;

namespace
{

struct UserDefaultsTest : testing::Test {
    UserDefaultsTest()
    {
        std::string pattern = (fs::temp_directory_path() / "orrinvale-test-XXXXXX").string();
        folder = ::mkdtemp(pattern.data());
        file = folder / "orrinvale" / "settings.json";
    }
    ~UserDefaultsTest() override { fs::remove_all(folder); }

    void write(const std::string& text)
    {
        fs::create_directories(file.parent_path());
        std::ofstream(file) << text;
    }
    std::string text() const { return readWholeFile(file).value_or("missing"); }

    fs::path folder;
    fs::path file;
};

TEST_F(UserDefaultsTest, EveryKindReadsBackInAnotherRun)
{
    const std::vector<DefaultsValue> values{true,
                                            false,
                                            std::int64_t(-20),
                                            0.5,
                                            1.0,
                                            std::string("Always Awake"),
                                            Instant(1773480413s),
                                            DefaultsData{R"([{"id":"x","score":3}])"},
                                            DefaultsData{"{not json"}};
    {
        LinuxUserDefaults defaults(file);
        for (std::size_t i = 0; i < values.size(); ++i)
            defaults.set("key" + std::to_string(i), values[i]);
    }
    LinuxUserDefaults again(file);
    for (std::size_t i = 0; i < values.size(); ++i)
        EXPECT_EQ(again.object("key" + std::to_string(i)), values[i]) << i;
    EXPECT_EQ(again.object("other"), std::nullopt);
}

TEST_F(UserDefaultsTest, TheFileIsOneThatAPersonCanEdit)
{
    LinuxUserDefaults defaults(file);
    defaults.set("orrinvale.wakeMode", std::string("Smart"));
    defaults.set("orrinvale.cpuSensitivity", 1.0);
    defaults.set("orrinvale.firstLaunchDate", Instant(1773480413s));
    EXPECT_EQ(text(), "{\n  \"orrinvale.wakeMode\": \"Smart\",\n  \"orrinvale.cpuSensitivity\": 1.0,\n"
                      "  \"orrinvale.firstLaunchDate\": {\n    \"date\": \"2026-03-14T09:26:53Z\"\n  }\n}\n");
}

TEST_F(UserDefaultsTest, AStringIsNoBooleanAndABooleanNoNumber)
{
    write(R"({"a": "true", "b": true, "c": 1})");
    LinuxUserDefaults defaults(file);
    EXPECT_EQ(defaults.object("a"), DefaultsValue(std::string("true")));
    EXPECT_EQ(defaults.object("b"), DefaultsValue(true));
    EXPECT_EQ(defaults.object("c"), DefaultsValue(std::int64_t(1)));
}

TEST_F(UserDefaultsTest, UnreadableValuesAreNothing)
{
    write(R"({"null": null, "large": 18446744073709551615, "date": {"date": "yesterday"}})");
    LinuxUserDefaults defaults(file);
    for (const auto* key : {"null", "large", "date"})
        EXPECT_EQ(defaults.object(key), std::nullopt) << key;
}

TEST_F(UserDefaultsTest, AnAssignmentReplacesItsOneKeyAndKeepsAllElse)
{
    write(R"({"unknown": {"deep": [1, 2.5, null]}, "a": 1, "bad": {"date": 7}, "z": "last"})");
    LinuxUserDefaults defaults(file);
    defaults.set("a", std::int64_t(2));
    EXPECT_EQ(text(),
              "{\n  \"unknown\": {\n    \"deep\": [\n      1,\n      2.5,\n      null\n    ]\n  },\n  \"a\": 2,\n"
              "  \"bad\": {\n    \"date\": 7\n  },\n  \"z\": \"last\"\n}\n");
}

TEST_F(UserDefaultsTest, AnEditFromOutsideSurvivesTheNextAssignment)
{
    LinuxUserDefaults defaults(file);
    defaults.set("a", true);
    write(R"({"a": true, "edited": "outside"})");
    defaults.set("b", false);
    LinuxUserDefaults again(file);
    EXPECT_EQ(again.object("edited"), DefaultsValue(std::string("outside")));
    EXPECT_EQ(again.object("b"), DefaultsValue(false));
}

TEST_F(UserDefaultsTest, AnEmptyFileIsAnEmptyStore)
{
    write("\n");
    LinuxUserDefaults defaults(file);
    defaults.set("a", true);
    EXPECT_EQ(std::distance(fs::directory_iterator(file.parent_path()), {}), 1);
}

TEST_F(UserDefaultsTest, AFileThatCannotBeReadIsSetAsideAndNeverWrittenOver)
{
    for (const std::string& bytes :
         {std::string("{\"a\": tr"), std::string("\0\1\xFF", 3), std::string("[1]"), std::string(50'000'000, ' ')}) {
        fs::remove_all(file.parent_path());
        write(bytes);
        LinuxUserDefaults defaults(file);
        defaults.set("a", true);
        EXPECT_EQ(readWholeFile(file.string() + ".unreadable"), bytes);
        EXPECT_EQ(text(), "{\n  \"a\": true\n}\n");
    }
}

TEST_F(UserDefaultsTest, AnEarlierFileThatWasSetAsideStays)
{
    write("first");
    LinuxUserDefaults one(file);
    write("second");
    LinuxUserDefaults two(file);
    EXPECT_EQ(readWholeFile(file.string() + ".unreadable"), "first");
    EXPECT_EQ(readWholeFile(file.string() + ".unreadable-2"), "second");
}

TEST_F(UserDefaultsTest, WhatWasChosenBeforeSurvivesAFileThatBreaks)
{
    LinuxUserDefaults defaults(file);
    defaults.set("a", true);
    write("broken");
    defaults.set("b", true);
    EXPECT_EQ(LinuxUserDefaults(file).object("a"), DefaultsValue(true));
    EXPECT_EQ(readWholeFile(file.string() + ".unreadable"), "broken");
}

TEST_F(UserDefaultsTest, AFolderInTheFilesPlaceIsSetAsideToo)
{
    fs::create_directories(file / "inner");
    LinuxUserDefaults defaults(file);
    defaults.set("a", true);
    EXPECT_TRUE(fs::is_directory(file.string() + ".unreadable"));
    EXPECT_EQ(LinuxUserDefaults(file).object("a"), DefaultsValue(true));
}

TEST_F(UserDefaultsTest, FileAndFolderAreTheUsersAlone)
{
    LinuxUserDefaults(file).set("a", true);
    EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(fs::status(file.parent_path()).permissions(), fs::perms::owner_all);
}

TEST_F(UserDefaultsTest, ALinkStaysALink)
{
    fs::create_directories(file.parent_path());
    std::ofstream(folder / "dotfiles.json") << R"({"a": 1})";
    fs::create_symlink(folder / "dotfiles.json", file);
    LinuxUserDefaults(file).set("b", std::int64_t(2));
    EXPECT_TRUE(fs::is_symlink(file));
    EXPECT_EQ(LinuxUserDefaults(folder / "dotfiles.json").object("b"), DefaultsValue(std::int64_t(2)));
}

TEST_F(UserDefaultsTest, BrokenUtf8AndNumbersBeyondJsonDoNoHarm)
{
    LinuxUserDefaults defaults(file);
    defaults.set("path", std::string("/home/M\xFCller"));
    defaults.set("nan", std::nan(""));
    LinuxUserDefaults again(file);
    EXPECT_EQ(again.object("path"), DefaultsValue(std::string("/home/M\xEF\xBF\xBDller")));
    EXPECT_EQ(again.object("nan"), std::nullopt);
}

TEST_F(UserDefaultsTest, AnUnwritableFolderFailsQuietlyAndTheValueStandsInMemory)
{
    std::ofstream(folder / "file") << "x";
    LinuxUserDefaults defaults(folder / "file" / "settings.json");
    defaults.set("a", true);
    EXPECT_EQ(readWholeFile(folder / "file"), "x");
}

TEST_F(UserDefaultsTest, ReaderAfterAKilledWriterFindsAWholeFile)
{
    LinuxUserDefaults(file).set("a", std::string(20'000, 'a'));
    std::minstd_rand random(11);
    for (int round = 0; round < 200; ++round) {
        const auto child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            LinuxUserDefaults defaults(file);
            for (char c = 'a';; c = c == 'a' ? 'b' : 'a')
                defaults.set("a", std::string(20'000, c));
        }
        ::usleep(static_cast<useconds_t>(random() % 3000));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        const auto value = LinuxUserDefaults(file).object("a");
        ASSERT_TRUE(value == DefaultsValue(std::string(20'000, 'a')) ||
                    value == DefaultsValue(std::string(20'000, 'b')))
            << round;
    }
    EXPECT_FALSE(fs::exists(file.string() + ".unreadable"));
}

} // namespace

} // namespace orrinvale
