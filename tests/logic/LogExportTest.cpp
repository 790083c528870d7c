// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/LogExport.h"

#include "base/AtomicFile.h"
#include "base/Timestamp.h"
#include "tests/logic/LogicFixture.h"

#include <unicode/udat.h>

namespace orrinvale
{

namespace
{

using Category = PersistedStateCategory;

ActivityEntry entry(const char* timestamp, Category category, std::string message)
{
    return {UUID::random(), timestampFromText(timestamp).value(), std::move(message), category};
}

const std::vector<ActivityEntry> log{
    entry("2026-10-28T21:05:09Z", Category::idle, "No activity"),
    entry("2026-10-28T21:04:39Z", Category::cooldown, "Cooling down (30s)"),
    entry("2026-10-27T08:00:00Z", Category::awake, "Download: 夏.zip — 50 %"),
};

// The medium time as the installed ICU gives it: its blank before AM and PM differs between versions.
std::string icuTime(Instant instant, const char* locale)
{
    auto error = U_ZERO_ERROR;
    auto* format = udat_open(UDAT_MEDIUM, UDAT_NONE, locale, u"UTC", 3, nullptr, 0, &error);
    std::array<char16_t, 64> text{};
    const auto milliseconds = std::chrono::floor<std::chrono::milliseconds>(instant.time_since_epoch()).count();
    const auto length =
        udat_format(format, static_cast<UDate>(milliseconds), text.data(), text.size(), nullptr, &error);
    udat_close(format);
    std::string bytes;
    for (const auto unit : std::u16string_view(text.data(), static_cast<std::size_t>(length)))
        bytes += unit == u'\u202F' ? "\xE2\x80\xAF" : std::string(1, static_cast<char>(unit));
    return bytes;
}

TEST(LogExport, EachEntryIsALineInTheLogsOrder)
{
    for (const auto* locale : {"en_US", "en_GB", "de_DE"}) {
        const auto time = [&](std::size_t i) { return icuTime(log[i].date, locale); };
        EXPECT_EQ(logExportText(log, LocalCalendar("UTC", locale)),
                  "[" + time(0) + "] [Idle] No activity\n[" + time(1) + "] [Cooling Down] Cooling down (30s)\n[" +
                      time(2) + "] [Awake] Download: 夏.zip — 50 %")
            << locale;
    }
}

TEST(LogExport, TheTimeIsTheLocalOneInTheLocalesMediumStyle)
{
    const std::vector one{log[0]};
    EXPECT_EQ(logExportText(one, LocalCalendar("UTC", "en_GB")), "[21:05:09] [Idle] No activity");
    EXPECT_EQ(logExportText(one, LocalCalendar("UTC", "de_DE")), "[21:05:09] [Idle] No activity");
    EXPECT_EQ(logExportText(one, LocalCalendar("Asia/Tokyo", "de_DE")), "[06:05:09] [Idle] No activity");
    const auto american = logExportText(one, LocalCalendar("UTC", "en_US"));
    EXPECT_TRUE(american == "[9:05:09 PM] [Idle] No activity" ||
                american == "[9:05:09\xE2\x80\xAFPM] [Idle] No activity")
        << american;
}

TEST(LogExport, AnEmptyLogIsAnEmptyFile)
{
    EXPECT_EQ(logExportText({}, LocalCalendar("UTC", "en_US")), "");
    TemporaryFolder folder;
    ASSERT_TRUE(writeFileAtomically(folder.path / logExportFileName, ""));
    EXPECT_EQ(readWholeFile(folder.path / "orrinvale-log.txt"), "");
}

} // namespace

} // namespace orrinvale
