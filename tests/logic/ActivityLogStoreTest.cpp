// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/ActivityLogStore.h"

#include "base/AtomicFile.h"
#include "base/Timestamp.h"
#include "tests/logic/LogicFixture.h"

#include <fstream>

#include <sys/stat.h>

namespace orrinvale
{

namespace
{

struct ActivityLogStoreTest : LogicFixture {
    ActivityLogStoreTest() { fake.applicationSupport.support = support.path; }

    static ActivityEntry entry(std::string message, PersistedStateCategory category = PersistedStateCategory::awake)
    {
        return {*UUID::fromText("0F6B3C2E-9D41-4A57-8E2B-5C1D7A9E3F10"), Instant(1773480413800ms), std::move(message),
                category};
    }
    void saveAndWait(std::vector<ActivityEntry> entries)
    {
        store.save(std::move(entries));
        time.advance(300ms);
    }
    std::string text() const { return readWholeFile(store.fileURL()).value_or("missing"); }
    void write(const std::string& bytes) { std::ofstream(store.fileURL()) << bytes; }

    TemporaryFolder support;
    FakeApplicationSupport& named = (fake.applicationSupport.support = support.path, fake.applicationSupport);
    ActivityLogStore store{named, time};
};

TEST_F(ActivityLogStoreTest, TheFileIsExactToTheByte)
{
    saveAndWait({entry("Cooldown complete — system may sleep", PersistedStateCategory::idle),
                 entry("a/b \"c\" \\ \n\t\x01", PersistedStateCategory::cooldown), entry("🍵")});
    EXPECT_EQ(
        text(),
        R"([{"id":"0F6B3C2E-9D41-4A57-8E2B-5C1D7A9E3F10","date":"2026-03-14T09:26:53Z","message":"Cooldown complete — system may sleep","category":"idle"},)"
        R"({"id":"0F6B3C2E-9D41-4A57-8E2B-5C1D7A9E3F10","date":"2026-03-14T09:26:53Z","message":"a/b \"c\" \\ \n\t\u0001","category":"cooldown"},)"
        R"({"id":"0F6B3C2E-9D41-4A57-8E2B-5C1D7A9E3F10","date":"2026-03-14T09:26:53Z","message":"🍵","category":"awake"}])");
}

TEST_F(ActivityLogStoreTest, TheEmptyListIsAnEmptyArray)
{
    saveAndWait({});
    EXPECT_EQ(text(), "[]");
}

TEST_F(ActivityLogStoreTest, BrokenTextNeverFailsTheWrite)
{
    saveAndWait({entry("M\xFCtze")});
    ASSERT_EQ(store.load().size(), 1u);
    EXPECT_EQ(store.load()[0].message, "M\xEF\xBF\xBDtze");
}

TEST_F(ActivityLogStoreTest, WhatWasSavedLoadsWithWholeSeconds)
{
    saveAndWait({entry("one"), entry("two")});
    const auto read = store.load();
    ASSERT_EQ(read.size(), 2u);
    EXPECT_EQ(read[0].message, "one");
    EXPECT_EQ(read[0].date, Instant(1773480413s));
}

TEST_F(ActivityLogStoreTest, FiveThousandEntriesAreWrittenAndNotOneMore)
{
    saveAndWait(std::vector<ActivityEntry>(5000, entry("x")));
    EXPECT_EQ(store.load().size(), 5000u);
    std::vector<ActivityEntry> many(5001, entry("x"));
    many.back().message = "the oldest";
    saveAndWait(many);
    ASSERT_EQ(store.load().size(), 5000u);
    EXPECT_EQ(store.load().back().message, "x");
}

TEST_F(ActivityLogStoreTest, TwoSavesInQuickSuccessionWriteOnceTheSecond)
{
    store.save({entry("first")});
    time.advance(100ms);
    store.save({entry("second")});
    time.advance(299ms);
    EXPECT_EQ(text(), "missing");
    time.advance(1ms);
    EXPECT_EQ(store.load().at(0).message, "second");
}

TEST_F(ActivityLogStoreTest, ASeriesOfSavesPostponesTheWriteUntilItEnds)
{
    for (int i = 0; i < 20; ++i) {
        store.save({entry("again")});
        time.advance(200ms);
    }
    EXPECT_EQ(text(), "missing");
    time.advance(100ms);
    EXPECT_NE(text(), "missing");
}

TEST_F(ActivityLogStoreTest, TheFileIsReadableByTheUserAlone)
{
    saveAndWait({});
    struct stat status {
    };
    ASSERT_EQ(::stat(store.fileURL().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600u);
    ASSERT_EQ(::stat(store.fileURL().parent_path().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0700u);
}

TEST_F(ActivityLogStoreTest, AMissingFileIsAnEmptyLogAndTheFirstSaveMakesIt)
{
    EXPECT_TRUE(store.load().empty());
    saveAndWait({entry("x")});
    EXPECT_EQ(store.load().size(), 1u);
}

TEST_F(ActivityLogStoreTest, AFolderRemovedLaterIsNotMadeAgain)
{
    std::filesystem::remove_all(store.fileURL().parent_path());
    saveAndWait({entry("x")});
    EXPECT_FALSE(std::filesystem::exists(store.fileURL().parent_path()));
}

TEST_F(ActivityLogStoreTest, WithoutApplicationSupportTheTemporaryFolderTakesItsPlace)
{
    fake.applicationSupport.support.reset();
    fake.applicationSupport.temporary = support.path / "temporary";
    const ActivityLogStore other(fake.applicationSupport, time);
    EXPECT_EQ(other.fileURL(), support.path / "temporary" / "orrinvale" / "activity_log.json");
}

TEST_F(ActivityLogStoreTest, MembersInAnyOrderAndUnknownOnesAreRead)
{
    write(
        R"([{"category":"idle","extra":{"a":[1]},"message":"m","date":"2026-03-14T09:26:53Z","id":"0f6b3c2e-9d41-4a57-8e2b-5c1d7a9e3f10"}])");
    ASSERT_EQ(store.load().size(), 1u);
    EXPECT_EQ(store.load()[0].category, PersistedStateCategory::idle);
}

TEST_F(ActivityLogStoreTest, EntriesFromLongAgoOrFarAheadKeepTheRestOfTheLog)
{
    auto entries = std::vector{entry("now"), entry("far"), entry("old")};
    entries[1].date = *timestampFromText("9999-12-31T23:59:59Z");
    entries[2].date = *timestampFromText("0001-01-01T00:00:00Z");
    saveAndWait(entries);
    const auto loaded = store.load();
    ASSERT_EQ(loaded.size(), 3u);
    EXPECT_EQ(loaded[1].date, entries[1].date);
    EXPECT_EQ(loaded[2].date, entries[2].date);
    const auto before = text();
    saveAndWait(loaded);
    EXPECT_EQ(text(), before);
}

TEST_F(ActivityLogStoreTest, ALogLargerThanAnyOfOursIsSetAsideUnread)
{
    write("[]");
    std::filesystem::resize_file(store.fileURL(), std::uintmax_t(3) << 30);
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_THAT(store.load(), IsEmpty());
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 500ms);
    EXPECT_EQ(std::filesystem::file_size(store.fileURL().string() + ".unreadable"), std::uintmax_t(3) << 30);
    saveAndWait({entry("new")});
    EXPECT_EQ(store.load().size(), 1u);
}

TEST_F(ActivityLogStoreTest, TheLargestLogOfOurOwnLoads)
{
    saveAndWait(std::vector(5000, entry("Downloading " + std::string(255, 'x') + ".crdownload")));
    EXPECT_EQ(store.load().size(), 5000u);
}

TEST_F(ActivityLogStoreTest, ATextThatNestsVeryDeepIsAnEmptyLog)
{
    const auto deep = std::string(100'000, '[') + std::string(100'000, ']');
    write(deep);
    EXPECT_THAT(store.load(), IsEmpty());
    EXPECT_EQ(text(), deep);
}

TEST_F(ActivityLogStoreTest, OneBadRecordDiscardsTheWholeFile)
{
    const std::string good =
        R"({"id":"0F6B3C2E-9D41-4A57-8E2B-5C1D7A9E3F10","date":"2026-03-14T09:26:53Z","message":"m","category":"awake"})";
    write("[" + good + "," + good + "]");
    ASSERT_EQ(store.load().size(), 2u);
    for (
        const std::string bad :
        {R"({"id":"0F6B3C2E-9D41-4A57-8E2B-5C1D7A9E3F10","date":"2026-03-14T09:26:53Z","message":"m","category":"Awake"})",
         R"({"id":"0F6B3C2E-9D41-4A57-8E2B-5C1D7A9E3F10","date":"2026-03-14T09:26:53Z","message":"m"})",
         R"({"id":"0F6B3C2E-9D41-4A57-8E2B-5C1D7A9E3F10","date":"2026-03-14","message":"m","category":"awake"})",
         R"({"id":"0F6B3C2E-9D41-4A57-8E2B-5C1D7A9E3F10","date":1773480413,"message":"m","category":"awake"})",
         R"({"id":"nonsense","date":"2026-03-14T09:26:53Z","message":"m","category":"awake"})",
         R"({"id":"0F6B3C2E-9D41-4A57-8E2B-5C1D7A9E3F10","date":"2026-03-14T09:26:53Z","message":7,"category":"awake"})",
         R"([])", R"("text")", R"(null)"}) {
        write("[" + good + "," + bad + "]");
        EXPECT_TRUE(store.load().empty()) << bad;
    }
}

TEST_F(ActivityLogStoreTest, FilesThatAreNoLogAreAnEmptyLogAndStayAsTheyAre)
{
    for (const std::string& bytes : {std::string(), std::string("["), std::string("{}"), std::string("[{}"),
                                     std::string("\0\1\2\xFF", 4), std::string(1'000'000, '['), std::string("[] []")}) {
        write(bytes);
        EXPECT_TRUE(store.load().empty());
        EXPECT_EQ(text(), bytes);
    }
}

} // namespace

} // namespace orrinvale
