// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/FeedbackWindowController.h"

#include "kit/TextLabel.h"
#include "orrinvale/FeedbackView.h"
#include "tests/interface/InterfaceFixture.h"
#include "tests/platform/WaitFor.h"

#include <fstream>

#include <signal.h>

namespace orrinvale
{

namespace
{

// A program that does what its script says; it writes its process id and what it hears into the test's folder.
struct FeedbackWindowControllerTest : InterfaceFixture {
    FeedbackWindowControllerTest() { open(); }
    ~FeedbackWindowControllerTest() override
    {
        // A program that still writes would put files back into the folder that goes.
        controller.reset();
        EXPECT_TRUE(waitFor([&] { return hasEveryRunEnded(); }, 10s));
    }

    void open()
    {
        controller = std::make_unique<FeedbackWindowController>(settings(), platform(), [this] {
            ++searches;
            runs += program && program == scripted ? 1 : 0;
            return program;
        });
    }
    void install(const std::string& script)
    {
        const auto path = folder.path / "program";
        std::ofstream(path) << "#!/bin/sh\ncd " << folder.path
                            << " || exit 1\necho $$ >>started\necho \"$@\" >arguments\n"
                            << script;
        std::filesystem::permissions(path, std::filesystem::perms::owner_all);
        program = scripted = QString::fromStdString(path.string());
    }
    // Shows its window, and writes down orders until they end.
    void installUsual()
    {
        install("echo loading\nwhile read -r order; do echo \"$order\" >>orders; done\necho end >>orders\n");
    }

    std::string text(const char* name) const
    {
        std::ifstream file(folder.path / name);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    std::vector<pid_t> started() const
    {
        std::ifstream file(folder.path / "started");
        return {std::istream_iterator<pid_t>(file), {}};
    }
    bool hasStarted() const { return text("arguments").ends_with('\n'); }
    bool isAlive(pid_t process) const { return ::kill(process, 0) == 0; }
    bool hasEveryRunEnded() const
    {
        const auto processes = started();
        return processes.size() == runs && std::ranges::none_of(processes, [&](pid_t one) { return isAlive(one); });
    }
    bool isFailureShown() const { return controller->failureWindow() && controller->failureWindow()->isVisible(); }

    TemporaryFolder folder;
    std::optional<QString> program;
    std::optional<QString> scripted; // the program that `install` made
    int searches = 0;
    std::size_t runs = 0; // of the script
    std::unique_ptr<FeedbackWindowController> controller;
};

TEST_F(FeedbackWindowControllerTest, TheProgramShowsTheWindowAndOursStaysHidden)
{
    installUsual();
    const auto timers = time.timerCount();
    controller->showWindow();
    EXPECT_EQ(time.timerCount(), timers + 1);
    ASSERT_TRUE(waitFor([&] { return time.timerCount() == timers; }));
    time.advance(1min);
    EXPECT_TRUE(controller->isProgramRunning());
    EXPECT_EQ(controller->failureWindow(), nullptr);
    EXPECT_EQ(text("arguments"), "--look light\n");
}

TEST_F(FeedbackWindowControllerTest, TheProgramHearsOfLookAndMotion)
{
    installUsual();
    fake.appearance.motionIsReduced = true;
    settings().appTheme.set(AppTheme::sakura);
    open();
    controller->showWindow();
    ASSERT_TRUE(waitFor([&] { return hasStarted(); }));
    EXPECT_EQ(text("arguments"), "--look sakura --still\n");
    settings().appTheme.set(AppTheme::dark);
    settings().applyTheme();
    time.runPending();
    EXPECT_TRUE(waitFor([&] { return text("orders").ends_with("look dark\n"); }));
}

TEST_F(FeedbackWindowControllerTest, TheProgramFollowsTheDesktop)
{
    installUsual();
    settings().appTheme.set(AppTheme::system);
    settings().applyTheme();
    controller->showWindow();
    fake.appearance.switchSystem(true);
    time.runPending();
    EXPECT_TRUE(waitFor([&] { return text("orders").ends_with("look dark\n"); }));
}

TEST_F(FeedbackWindowControllerTest, ASecondCallBringsTheRunningOneForward)
{
    installUsual();
    controller->showWindow();
    controller->showWindow();
    EXPECT_TRUE(waitFor([&] { return text("orders") == "raise\n"; }));
    EXPECT_EQ(started().size(), 1U);
}

TEST_F(FeedbackWindowControllerTest, AClosedWindowOpensAnew)
{
    install("echo loading\n");
    controller->showWindow();
    ASSERT_TRUE(waitFor([&] { return !controller->isProgramRunning(); }));
    EXPECT_FALSE(isFailureShown());
    controller->showWindow();
    ASSERT_TRUE(waitFor([&] { return !controller->isProgramRunning(); }));
    EXPECT_FALSE(isFailureShown());
    EXPECT_EQ(started().size(), 2U);
}

TEST_F(FeedbackWindowControllerTest, WithoutTheProgramOurWindowSaysThatItFailed)
{
    controller->showWindow();
    EXPECT_TRUE(isFailureShown());
    EXPECT_FALSE(controller->isProgramRunning());
    QStringList texts;
    for (const auto* label : controller->failureWindow()->findChildren<TextLabel*>())
        texts += label->text();
    EXPECT_EQ(texts.join(u'|'), QStringLiteral("orrinvale|Send Feedback|Couldn't load the survey.\n"
                                               "Check your internet connection."));
}

TEST_F(FeedbackWindowControllerTest, AProgramThatCannotBeStartedFails)
{
    program = QString::fromStdString((folder.path / "missing").string());
    controller->showWindow();
    EXPECT_TRUE(waitFor([&] { return isFailureShown(); }));
    EXPECT_FALSE(controller->isProgramRunning());
}

TEST_F(FeedbackWindowControllerTest, AProgramThatIsNoneFails)
{
    const auto path = folder.path / "program";
    std::ofstream(path) << "no program";
    program = QString::fromStdString(path.string());
    controller->showWindow();
    EXPECT_TRUE(waitFor([&] { return isFailureShown(); }));
}

TEST_F(FeedbackWindowControllerTest, AProgramThatGivesUpOrBreaksDownFails)
{
    for (const auto* script : {"exit 2\n", "kill -ABRT $$\n", "echo loading\necho loaded\nkill -SEGV $$\n"}) {
        install(script);
        open();
        controller->showWindow();
        EXPECT_TRUE(waitFor([&] { return isFailureShown(); })) << script;
        EXPECT_FALSE(controller->isProgramRunning()) << script;
    }
}

TEST_F(FeedbackWindowControllerTest, AProgramThatShowsNothingForTwelveSecondsFailsAndIsLetGo)
{
    install("while read -r order; do :; done\n");
    controller->showWindow();
    ASSERT_TRUE(waitFor([&] { return hasStarted(); }));
    time.advance(11999ms);
    EXPECT_FALSE(isFailureShown());
    time.advance(1ms);
    EXPECT_TRUE(isFailureShown());
    EXPECT_FALSE(controller->isProgramRunning());
    EXPECT_TRUE(waitFor([&] { return !isAlive(started().front()); }));
}

TEST_F(FeedbackWindowControllerTest, TheFailureIsBroughtForwardAndTriedAgainOnceClosed)
{
    controller->showWindow();
    ASSERT_EQ(searches, 1);
    installUsual();
    controller->showWindow();
    EXPECT_TRUE(isFailureShown());
    EXPECT_EQ(searches, 1);
    controller->failureWindow()->close();
    controller->showWindow();
    EXPECT_FALSE(isFailureShown());
    EXPECT_TRUE(controller->isProgramRunning());
}

TEST_F(FeedbackWindowControllerTest, DroppingItEndsTheOrdersWithoutWaiting)
{
    installUsual();
    controller->showWindow();
    ASSERT_TRUE(waitFor([&] { return hasStarted(); }));
    const auto process = started().front();
    const auto before = std::chrono::steady_clock::now();
    controller.reset();
    EXPECT_LT(std::chrono::steady_clock::now() - before, 100ms);
    EXPECT_TRUE(waitFor([&] { return text("orders") == "end\n" && !isAlive(process); }));
}

TEST_F(FeedbackWindowControllerTest, AProgramThatIgnoresTheEndIsEnded)
{
    install("echo loading\ntrap '' TERM\nexec sleep 1000\n");
    controller->showWindow();
    ASSERT_TRUE(waitFor([&] { return hasStarted(); }));
    const auto process = started().front();
    controller.reset();
    EXPECT_TRUE(waitFor([&] { return !isAlive(process); }, 10s));
}

TEST_F(FeedbackWindowControllerTest, DroppingItRightAfterTheStartIsSafe)
{
    installUsual();
    for (int i = 0; i < 3; ++i) {
        open();
        controller->showWindow();
        controller.reset();
    }
    EXPECT_EQ(runs, 3U);
    EXPECT_TRUE(waitFor([&] { return hasEveryRunEnded(); }));
}

TEST_F(FeedbackWindowControllerTest, OurWindowHasTheFrameOfTheOther)
{
    controller->showWindow();
    const auto& window = *controller->failureWindow();
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Feedback"));
    EXPECT_EQ(window.size(), QSize(520, 640));
    EXPECT_EQ(window.minimumSize(), QSize(380, 420));
    EXPECT_FALSE(window.windowFlags() & Qt::WindowMinimizeButtonHint);
    EXPECT_TRUE(window.windowFlags() & Qt::WindowCloseButtonHint);
}

// A window and its program leave nothing behind in the application.
TEST_F(FeedbackWindowControllerTest, TheApplicationIsAsBeforeOnceTheProgramHasEnded)
{
    const auto residentKilobytes = [] {
        std::ifstream file("/proc/self/smaps_rollup");
        std::string word;
        while (file >> word && word != "Rss:") {
        }
        long kilobytes = 0;
        file >> kilobytes;
        return kilobytes;
    };
    const auto descriptors = [] {
        const std::filesystem::directory_iterator all("/proc/self/fd");
        return std::distance(begin(all), end(all));
    };
    installUsual();
    const auto descriptorsBefore = descriptors();
    const auto before = residentKilobytes();
    ASSERT_GT(before, 0);
    controller->showWindow();
    ASSERT_TRUE(waitFor([&] { return hasStarted(); }));
    const auto process = started().front();
    controller.reset();
    ASSERT_TRUE(waitFor([&] { return !isAlive(process); }));
    EXPECT_TRUE(waitFor([&] { return descriptors() == descriptorsBefore; }));
    EXPECT_LT(residentKilobytes() - before, 1024);
}

} // namespace

} // namespace orrinvale
