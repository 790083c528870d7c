// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/PortalFilePanels.h"

#include "platform/fake/FakeFilePanels.h"
#include "tests/platform/ScriptedService.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <fstream>

namespace orrinvale
{

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using Path = std::filesystem::path;

namespace
{

// A session bus without a portal but the one that a test starts.
class PortalFilePanelsTest : public testing::Test
{
protected:
    void start(const QStringList& arguments)
    {
        m_portal = std::make_unique<ScriptedService>(QStringLiteral(FILE_CHOOSER), arguments);
    }
    static QStringList choosing(const char* uri)
    {
        return {QStringLiteral("0"), QStringLiteral("0"), QString::fromUtf8(uri)};
    }
    FilePanels::Answer answer()
    {
        return [this](std::optional<Path> path) { m_answers.push_back(std::move(path)); };
    }
    void chooseFolder() { m_tokens += m_panels->chooseFolder({"Choose", "/home/anna/Fïlme", 0}, answer()); }
    void chooseFile() { m_tokens += m_panels->chooseFile({"orrinvale-log.txt", "text/plain", 0}, answer()); }
    bool areAnswered(std::size_t count = 1, std::chrono::milliseconds limit = 5s)
    {
        return waitFor([&] { return m_answers.size() >= count; }, limit);
    }
    bool othersAreAsked(std::chrono::milliseconds limit = 5s)
    {
        return waitFor([&] { return m_others.isOpen(); }, limit);
    }

    std::unique_ptr<ScriptedService> m_portal;
    FakeFilePanels m_others;
    std::unique_ptr<PortalFilePanels> m_panels =
        std::make_unique<PortalFilePanels>(QDBusConnection::sessionBus(), m_others);
    std::vector<std::optional<Path>> m_answers;
    Cancellables m_tokens;
};

TEST_F(PortalFilePanelsTest, ABusThatHangsHoldsUpNothing)
{
    std::ifstream pids(qEnvironmentVariable("BED").toStdString() + "/pids/session-bus");
    pid_t bus = 0;
    ASSERT_TRUE(pids >> bus);
    ASSERT_EQ(::kill(bus, SIGSTOP), 0);
    const auto begin = std::chrono::steady_clock::now();
    chooseFolder();
    chooseFile();
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 1s);
    EXPECT_TRUE(othersAreAsked());
    ::kill(bus, SIGCONT);
}

TEST_F(PortalFilePanelsTest, AsksThePortalForOneFolder)
{
    start(choosing("file:///home/anna/Films"));
    chooseFolder();
    EXPECT_THAT(m_answers, IsEmpty());
    ASSERT_TRUE(areAnswered());
    EXPECT_THAT(m_answers, ElementsAre(Path("/home/anna/Films")));
    EXPECT_EQ(m_portal->log(), QStringList{QStringLiteral(
                                   "OpenFile '' 'Downloads Folder' accept_label='Choose' "
                                   "current_folder=b'/home/anna/F\\xc3\\xaflme\\x00' directory=True modal=True")});
    EXPECT_FALSE(m_others.isOpen());
}

TEST_F(PortalFilePanelsTest, AsksThePortalWhereToSave)
{
    start(choosing("file:///home/anna/log.txt"));
    chooseFile();
    ASSERT_TRUE(areAnswered());
    EXPECT_THAT(m_answers, ElementsAre(Path("/home/anna/log.txt")));
    EXPECT_EQ(m_portal->log(), QStringList{QStringLiteral("SaveFile '' 'Export' current_name='orrinvale-log.txt' "
                                                          "filters=[('text/plain', [(1, 'text/plain')])] modal=True")});
}

TEST_F(PortalFilePanelsTest, AddressesAreDecodedAndTheFirstOneCounts)
{
    start(choosing("file:///home/anna/F%C3%AFlme%20%26%20more%20100%25") << QStringLiteral("file:///other"));
    chooseFolder();
    ASSERT_TRUE(areAnswered());
    EXPECT_THAT(m_answers, ElementsAre(Path("/home/anna/Fïlme & more 100%")));
}

TEST_F(PortalFilePanelsTest, APlaceThatIsNoFileIsNone)
{
    start(choosing("sftp://somewhere/folder"));
    chooseFolder();
    ASSERT_TRUE(areAnswered());
    EXPECT_THAT(m_answers, ElementsAre(std::nullopt));
}

TEST_F(PortalFilePanelsTest, ASuccessWithoutAPlaceIsNone)
{
    start({QStringLiteral("0")});
    chooseFolder();
    ASSERT_TRUE(areAnswered());
    EXPECT_THAT(m_answers, ElementsAre(std::nullopt));
}

TEST_F(PortalFilePanelsTest, CancellingIsAnswered)
{
    for (const auto* response : {"1", "2"}) {
        start({QString::fromLatin1(response), QStringLiteral("0"), QStringLiteral("file:///ignored")});
        m_answers.clear();
        chooseFile();
        ASSERT_TRUE(areAnswered());
        EXPECT_THAT(m_answers, ElementsAre(std::nullopt));
        EXPECT_FALSE(m_others.isOpen());
        m_portal.reset();
    }
}

TEST_F(PortalFilePanelsTest, ThePortalsEndIsTheEndOfItsPanels)
{
    start({QStringLiteral("0"), QStringLiteral("60"), QStringLiteral("file:///home/anna/Films")});
    chooseFolder();
    ASSERT_TRUE(waitFor([&] { return !m_portal->log().isEmpty(); }, 5s));
    EXPECT_FALSE(areAnswered(1, 300ms));
    m_portal.reset();
    ASSERT_TRUE(areAnswered());
    EXPECT_THAT(m_answers, ElementsAre(std::nullopt));
    EXPECT_FALSE(m_others.isOpen());
}

TEST_F(PortalFilePanelsTest, TheUserMayTakeLongerThanThePortal)
{
    start({QStringLiteral("0"), QStringLiteral("3.5"), QStringLiteral("file:///home/anna/Films")});
    chooseFolder();
    ASSERT_TRUE(areAnswered(1, 8s));
    EXPECT_THAT(m_answers, ElementsAre(Path("/home/anna/Films")));
    EXPECT_FALSE(m_others.isOpen());
}

TEST_F(PortalFilePanelsTest, WithoutAPortalTheOtherPanelsAreAsked)
{
    chooseFolder();
    ASSERT_TRUE(othersAreAsked());
    EXPECT_EQ(m_others.folderRequest->prompt, "Choose");
    EXPECT_EQ(m_others.folderRequest->folder, "/home/anna/Fïlme");
    m_others.choose("/from/the/others");
    EXPECT_THAT(m_answers, ElementsAre(Path("/from/the/others")));
    chooseFile();
    ASSERT_TRUE(othersAreAsked());
    EXPECT_EQ(m_others.saveRequest->fileName, "orrinvale-log.txt");
    EXPECT_EQ(m_others.saveRequest->contentType, "text/plain");
    m_others.choose(std::nullopt);
    EXPECT_THAT(m_answers, ElementsAre(Path("/from/the/others"), std::nullopt));
}

TEST_F(PortalFilePanelsTest, AnErrorReplyLeadsToTheOtherPanels)
{
    start({QStringLiteral("refuse")});
    chooseFolder();
    ASSERT_TRUE(othersAreAsked());
    EXPECT_EQ(m_others.folderRequest->prompt, "Choose");
    EXPECT_THAT(m_answers, IsEmpty());
}

TEST_F(PortalFilePanelsTest, ASilentPortalLeadsToTheOtherPanelsWithinSeconds)
{
    start({QStringLiteral("silent")});
    chooseFile();
    runEventsFor(1s);
    EXPECT_FALSE(m_others.isOpen());
    ASSERT_TRUE(othersAreAsked(4s));
    EXPECT_EQ(m_others.saveRequest->fileName, "orrinvale-log.txt");
    m_others.choose("/from/the/others");
    EXPECT_THAT(m_answers, ElementsAre(Path("/from/the/others")));
}

TEST_F(PortalFilePanelsTest, APortalThatComesLaterIsAskedThen)
{
    chooseFolder();
    ASSERT_TRUE(othersAreAsked());
    m_others.choose(std::nullopt);
    start(choosing("file:///home/anna/Films"));
    chooseFolder();
    ASSERT_TRUE(areAnswered(2));
    EXPECT_EQ(m_answers[1], Path("/home/anna/Films"));
}

TEST_F(PortalFilePanelsTest, SeveralPanelsMayBeOpen)
{
    start({QStringLiteral("0"), QStringLiteral("0.1"), QStringLiteral("file:///home/anna/Films")});
    chooseFolder();
    chooseFile();
    chooseFolder();
    ASSERT_TRUE(areAnswered(3));
    runEventsFor(200ms);
    EXPECT_EQ(m_answers.size(), 3u);
    EXPECT_EQ(m_portal->log().size(), 3);
}

TEST_F(PortalFilePanelsTest, OneAnswerCounts)
{
    start({QStringLiteral("twice"), QStringLiteral("0"), QStringLiteral("file:///home/anna/Films")});
    chooseFolder();
    ASSERT_TRUE(areAnswered());
    runEventsFor(100ms);
    EXPECT_THAT(m_answers, ElementsAre(Path("/home/anna/Films")));
}

TEST_F(PortalFilePanelsTest, AnAnswerMayAskAgain)
{
    start(choosing("file:///home/anna/Films"));
    m_tokens += m_panels->chooseFolder({"Choose", "/home", 0}, [this](const auto&) { chooseFolder(); });
    ASSERT_TRUE(areAnswered());
    EXPECT_THAT(m_answers, ElementsAre(Path("/home/anna/Films")));
}

TEST_F(PortalFilePanelsTest, AnAnswerMayEndThePanels)
{
    start(choosing("file:///home/anna/Films"));
    bool isAnswered = false;
    m_tokens += m_panels->chooseFolder({"Choose", "/home", 0}, [&](const auto&) {
        m_panels.reset();
        isAnswered = true;
    });
    EXPECT_TRUE(waitFor([&] { return isAnswered; }));
    runEventsFor(50ms);
}

TEST_F(PortalFilePanelsTest, NothingIsAnsweredAfterTheirEnd)
{
    start({QStringLiteral("0"), QStringLiteral("0.1"), QStringLiteral("file:///home/anna/Films")});
    chooseFolder();
    waitFor([this] { return !m_portal->log().isEmpty(); });
    m_panels.reset();
    runEventsFor(300ms);
    EXPECT_THAT(m_answers, IsEmpty());
    EXPECT_FALSE(m_others.isOpen());
}

TEST_F(PortalFilePanelsTest, AQuestionTakenBackClosesThePortalsDialog)
{
    start({QStringLiteral("0"), QStringLiteral("0.3"), QStringLiteral("file:///home/anna/Films")});
    chooseFolder();
    waitFor([this] { return !m_portal->log().isEmpty(); });
    m_tokens.clear();
    EXPECT_TRUE(waitFor([this] { return m_portal->log().contains(QStringLiteral("Close")); }));
    runEventsFor(400ms);
    EXPECT_THAT(m_answers, IsEmpty());
}

TEST_F(PortalFilePanelsTest, AQuestionTakenBackIsTakenBackFromTheOtherPanels)
{
    chooseFolder();
    ASSERT_TRUE(othersAreAsked());
    m_tokens.clear();
    EXPECT_FALSE(m_others.isOpen());
    EXPECT_THAT(m_answers, IsEmpty());
}

TEST_F(PortalFilePanelsTest, AQuestionTakenBackEarlyIsNotPutToTheOthers)
{
    start({QStringLiteral("refuse")});
    chooseFolder();
    m_tokens.clear();
    runEventsFor(300ms);
    EXPECT_FALSE(m_others.isOpen());
}

} // namespace

} // namespace orrinvale
