// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/ReasonContent.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>

namespace orrinvale
{

void PrintTo(const ReasonContent& content, std::ostream* out)
{
    *out << content.title << " | " << content.category << " | " << content.symbol << " | " << content.time;
}

namespace
{

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr Instant now{1773480413s};

WakeSignal signalOf(const std::string& detail, std::int64_t score = 3, SignalSource source = SignalSource::download)
{
    return {.source = source, .detail = detail, .score = score, .timestamp = now, .appBundleID = {}, .appName = {}};
}

std::vector<std::string> pageTexts(const WakeSignals& signals)
{
    std::vector<std::string> texts;
    for (const auto& page : pagesOf(signals))
        texts.push_back(page.detail + " " + std::to_string(page.score));
    return texts;
}

TEST(ReasonContent, EverySourceHasItsCategoryAndSymbol)
{
    struct Row {
        SignalSource source;
        const char* category;
        const char* symbol;
    };
    for (const auto& row : {Row{SignalSource::download, "Download", "arrow.down.circle.fill"},
                            Row{SignalSource::network, "Network", "antenna.radiowaves.left.and.right"},
                            Row{SignalSource::process, "Process", "gearshape.fill"},
                            Row{SignalSource::cpu, "CPU", "cpu"}, Row{SignalSource::manual, "Manual", "lock.fill"}}) {
        const auto content = ReasonContent::of(signalOf("Detail", 3, row.source), now);
        const ReasonContent expected{"Detail", row.category, row.symbol, "Detected 0s ago",
                                     ReasonContent::Badge::accent};
        EXPECT_EQ(content, expected);
    }
}

TEST(ReasonContent, TheTitleIsTheDetailToTheByte)
{
    const std::string detail = "Downloading <b>R&D</b> – \"50 %\" \xF0\x9F\x8C\xBF.part";
    EXPECT_EQ(ReasonContent::of(signalOf(detail), now).title, detail);
    EXPECT_EQ(ReasonContent::of(signalOf(""), now).title, "");
}

TEST(ReasonContent, TheTimeTellsHowLongAgoTheSignalWasDetected)
{
    EXPECT_EQ(ReasonContent::of(signalOf("Detail"), now + 59s).time, "Detected 59s ago");
    EXPECT_EQ(ReasonContent::of(signalOf("Detail"), now + 3600s).time, "Detected 1h ago");
}

TEST(ReasonContent, WithoutSignalsTheAwakeStatesReasonIsShown)
{
    const ReasonContent expected{"Manual mode", "System", "bolt.fill", "Currently active",
                                 ReasonContent::Badge::accent};
    EXPECT_EQ(ReasonContent::ofNoSignal("Manual mode", true), expected);
}

TEST(ReasonContent, AnEmptyReasonIsStillAReason)
{
    EXPECT_EQ(ReasonContent::ofNoSignal("", true).category, "System");
}

TEST(ReasonContent, WithNeitherSignalNorReasonTheMachineCanSleep)
{
    const ReasonContent expected{"No active reason", "Idle", "moon.zzz.fill", "Your Mac can sleep normally",
                                 ReasonContent::Badge::idle};
    EXPECT_EQ(ReasonContent::ofNoSignal(std::nullopt, false), expected);
    EXPECT_EQ(ReasonContent::ofNoSignal(std::nullopt, true), expected) << "a cooldown has no reason";
    EXPECT_EQ(ReasonContent::ofNoSignal("left over", false), expected) << "idle shows no reason";
}

TEST(RelativeTime, CountsWholeSecondsMinutesAndHours)
{
    struct Row {
        std::chrono::nanoseconds age;
        const char* text;
    };
    for (const auto& row : {Row{0s, "0s ago"}, Row{999ms, "0s ago"}, Row{1s, "1s ago"}, Row{1999ms, "1s ago"},
                            Row{59s, "59s ago"}, Row{59s + 999ms, "59s ago"}, Row{60s, "1m ago"}, Row{119s, "1m ago"},
                            Row{120s, "2m ago"}, Row{3599s, "59m ago"}, Row{3600s, "1h ago"}, Row{7199s, "1h ago"},
                            Row{7200s, "2h ago"}, Row{24h, "24h ago"}, Row{1000h, "1000h ago"}})
        EXPECT_EQ(relativeTime(now - std::chrono::duration_cast<Instant::duration>(row.age), now), row.text);
}

TEST(RelativeTime, TheFutureIsNow)
{
    for (const auto ahead : {1s, 60s, 86400s})
        EXPECT_EQ(relativeTime(now + ahead, now), "0s ago");
}

TEST(Pages, NoSignalsAreNoPages)
{
    EXPECT_THAT(pageTexts({}), IsEmpty());
}

TEST(Pages, TheHighestScoreComesFirstAndEqualOnesKeepTheirOrder)
{
    EXPECT_THAT(pageTexts({signalOf("ten", 10), signalOf("fifty a", 50), signalOf("fifty b", 50)}),
                ElementsAre("fifty a 50", "fifty b 50", "ten 10"));
}

TEST(Pages, ManyEqualScoresKeepTheirOrder)
{
    WakeSignals signals;
    std::vector<std::string> expected;
    for (int i = 0; i < 40; ++i) {
        signals.push_back(signalOf("signal " + std::to_string(i), 3));
        expected.push_back(signals.back().detail + " 3");
    }
    EXPECT_EQ(pageTexts(signals), expected);
}

TEST(Pages, TheFirstSignalOfADetailStandsForAllEvenWithALowerScore)
{
    EXPECT_THAT(pageTexts({signalOf("same", 1), signalOf("other", 5), signalOf("same", 9)}),
                ElementsAre("other 5", "same 1"));
}

TEST(Pages, DetailsAreComparedToTheByte)
{
    EXPECT_THAT(pageTexts({signalOf("Build"), signalOf("build"), signalOf("build ")}),
                ElementsAre("Build 3", "build 3", "build  3"));
}

} // namespace

} // namespace orrinvale
