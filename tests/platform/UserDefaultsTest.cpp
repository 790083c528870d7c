// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxUserDefaults.h"

#include "base/AtomicFile.h"
#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <random>

#include <sys/resource.h>
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
    UserDefaultsTest() { file = folder / "orrinvale" / "settings.json"; }

    void write(const std::string& text)
    {
        fs::create_directories(file.parent_path());
        std::ofstream(file) << text;
    }
    std::string text() const { return readWholeFile(file).value_or("missing"); }

    TemporaryFolder temporary;
    const fs::path& folder = temporary.path;
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

TEST_F(UserDefaultsTest, ATextThatNestsVeryDeepIsSetAside)
{
    for (const auto levels : {101, 80'000, 1'000'000}) {
        fs::remove_all(file.parent_path());
        const auto arrays = std::string(static_cast<std::size_t>(levels), '[');
        const auto bytes = "{\"a\": " + arrays + std::string(arrays.size(), ']') + "}";
        write(bytes);
        LinuxUserDefaults defaults(file);
        EXPECT_EQ(defaults.object("a"), std::nullopt);
        EXPECT_EQ(readWholeFile(file.string() + ".unreadable"), bytes);
    }
}

// Its target's first byte cannot be read: EIO.
TEST_F(UserDefaultsTest, AFileThatTheSystemRefusesToReadIsLeftAloneAndReadAgain)
{
    fs::create_directories(file.parent_path());
    fs::create_symlink("/proc/self/mem", file);
    LinuxUserDefaults defaults(file);
    defaults.set("firstLaunchDate", Instant(1773480413s));
    defaults.set("theme", std::string("Dark"));
    defaults.set("mode", std::string("Off"));
    EXPECT_EQ(defaults.object("theme"), DefaultsValue(std::string("Dark")));
    EXPECT_EQ(fs::read_symlink(file), "/proc/self/mem");
    EXPECT_EQ(std::distance(fs::directory_iterator(file.parent_path()), {}), 1);

    fs::remove(file);
    write(R"({"firstLaunchDate": {"date": "2026-01-02T03:04:05Z"}, "mode": "Smart", "unknown": 7})");
    defaults.set("other", true);
    LinuxUserDefaults again(file);
    EXPECT_EQ(again.object("firstLaunchDate"), DefaultsValue(Instant(1767323045s)));
    EXPECT_EQ(again.object("theme"), DefaultsValue(std::string("Dark")));
    EXPECT_EQ(again.object("mode"), DefaultsValue(std::string("Off")));
    EXPECT_EQ(again.object("unknown"), DefaultsValue(std::int64_t(7)));
    EXPECT_EQ(again.object("other"), DefaultsValue(true));
}

TEST_F(UserDefaultsTest, WithoutADescriptorLeftNothingIsSetAside)
{
    write(R"({"a": 1})");
    const auto child = ::fork();
    if (child == 0) {
        const rlimit none{0, 0};
        ::setrlimit(RLIMIT_NOFILE, &none);
        LinuxUserDefaults defaults(file);
        defaults.set("b", true);
        ::_exit(defaults.object("b") == DefaultsValue(true) ? 0 : 1);
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(text(), R"({"a": 1})");
    EXPECT_EQ(std::distance(fs::directory_iterator(file.parent_path()), {}), 1);
}

TEST_F(UserDefaultsTest, AFileRemovedMeanwhileIsWrittenWithAllThatIsKnown)
{
    write(R"({"a": 1, "unknown": [1]})");
    LinuxUserDefaults defaults(file);
    fs::remove(file);
    defaults.set("b", true);
    EXPECT_EQ(text(), "{\n  \"a\": 1,\n  \"unknown\": [\n    1\n  ],\n  \"b\": true\n}\n");
}

TEST_F(UserDefaultsTest, WhatCouldNotBeWrittenIsWrittenWithTheNextAssignment)
{
    write(R"({"a": 1})");
    LinuxUserDefaults defaults(file);
    fs::create_directory(file.parent_path() / ".settings.json.tmp");
    defaults.set("b", true);
    EXPECT_EQ(text(), R"({"a": 1})");
    fs::remove(file.parent_path() / ".settings.json.tmp");
    defaults.set("c", true);
    LinuxUserDefaults again(file);
    EXPECT_EQ(again.object("a"), DefaultsValue(std::int64_t(1)));
    EXPECT_EQ(again.object("b"), DefaultsValue(true));
    EXPECT_EQ(again.object("c"), DefaultsValue(true));
}

} // namespace

} // namespace orrinvale
