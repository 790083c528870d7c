// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/FeedbackView.h"

#include "kit/TextLabel.h"
#include "tests/interface/InterfaceFixture.h"
#include "tests/platform/WaitFor.h"

namespace orrinvale
{

namespace
{

// The largest difference of a component: how translucent colours round is the painter's affair.
int distance(const QColor& one, const QColor& other)
{
    return std::max({std::abs(one.red() - other.red()), std::abs(one.green() - other.green()),
                     std::abs(one.blue() - other.blue())});
}

struct FeedbackViewTest : InterfaceFixture {
    void open(FeedbackOverlay::Motion motion)
    {
        view = std::make_unique<FeedbackView>(state, time, motion);
        form = new QWidget;
        form->setAutoFillBackground(true);
        form->setPalette(QPalette(Qt::blue));
        view->setForm(form);
        view->resize(feedbackFrame::size);
        view->show();
        settle();
    }
    FeedbackOverlay& overlay() const { return *view->findChild<FeedbackOverlay*>(); }
    QString overlayText() const { return overlay().findChild<TextLabel*>()->text(); }
    void loaded()
    {
        state->isLoading.set(false);
        settle();
    }
    void failed()
    {
        state->loadFailed.set(true);
        state->isLoading.set(false);
        settle();
    }
    QColor colourAt(int x, int y) const { return picture(*view).pixelColor(x, y); }

    std::shared_ptr<FeedbackState> state = std::make_shared<FeedbackState>();
    std::unique_ptr<FeedbackView> view;
    QWidget* form = nullptr; // the view's
};

TEST_F(FeedbackViewTest, TheHeaderNamesTheProductAndWhatItIsFor)
{
    open(FeedbackOverlay::Motion::still);
    const auto labels = view->findChildren<TextLabel*>(QString(), Qt::FindDirectChildrenOnly);
    ASSERT_EQ(labels.size(), 2);
    EXPECT_EQ(labels[0]->text(), QStringLiteral("orrinvale"));
    EXPECT_EQ(labels[0]->geometry(), QRect(20, 18, 480, 15));
    EXPECT_EQ(labels[1]->text(), QStringLiteral("Send Feedback"));
    EXPECT_EQ(labels[1]->geometry(), QRect(20, 34, 480, 20));
}

TEST_F(FeedbackViewTest, FormAndOverlayFillAllBelowTheHeader)
{
    open(FeedbackOverlay::Motion::still);
    EXPECT_EQ(form->geometry(), QRect(0, 74, 520, 566));
    EXPECT_EQ(overlay().geometry(), QRect(0, 74, 520, 566));
    view->resize(700, 450);
    EXPECT_EQ(form->geometry(), QRect(0, 74, 700, 376));
    EXPECT_EQ(overlay().geometry(), QRect(0, 74, 700, 376));
    EXPECT_EQ(view->minimumSize(), QSize(380, 420));
}

TEST_F(FeedbackViewTest, LoadingHidesTheFormBehindARing)
{
    open(FeedbackOverlay::Motion::still);
    EXPECT_TRUE(overlay().isVisible());
    EXPECT_EQ(overlayText(), QStringLiteral("Loading survey…"));
    EXPECT_EQ(overlay().findChild<TextLabel*>()->geometry(), QRect(24, 272, 472, 18));
    EXPECT_EQ(colourAt(100, 400), bytes(white(0.96)));
    // The ring's line is 9.5 around (260, 322): at the right above, the arc; at the left, what rests.
    EXPECT_EQ(colourAt(266, 315), QColor(0x2e944d));
    EXPECT_EQ(colourAt(250, 322), QColor(0xe3e3e3));
}

TEST_F(FeedbackViewTest, AFormThatLoadedIsUncoveredAtOnceWithoutMotion)
{
    open(FeedbackOverlay::Motion::still);
    loaded();
    EXPECT_FALSE(overlay().isVisible());
    EXPECT_EQ(colourAt(100, 400), QColor(Qt::blue));
}

TEST_F(FeedbackViewTest, AFormThatLoadedIsUncoveredByAShortFade)
{
    open(FeedbackOverlay::Motion::moving);
    loaded();
    EXPECT_TRUE(overlay().isVisible());
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_TRUE(waitFor([&] { return !overlay().isVisible(); }));
    EXPECT_GT(std::chrono::steady_clock::now() - begin, 100ms);
    EXPECT_EQ(colourAt(100, 400), QColor(Qt::blue));
}

TEST_F(FeedbackViewTest, AFailureSaysSoInTwoLinesAndHidesTheForm)
{
    open(FeedbackOverlay::Motion::moving);
    failed();
    EXPECT_TRUE(overlay().isVisible());
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(overlayText(), QStringLiteral("Couldn't load the survey.\nCheck your internet connection."));
    EXPECT_EQ(overlay().findChild<TextLabel*>()->geometry(), QRect(24, 268, 472, 40));
}

TEST_F(FeedbackViewTest, AMessageAfterTheFailureChangesNothing)
{
    open(FeedbackOverlay::Motion::moving);
    state->loadFailed.set(true);
    settle();
    loaded();
    EXPECT_TRUE(overlay().isVisible());
    EXPECT_TRUE(overlayText().startsWith(QStringLiteral("Couldn't")));
}

TEST_F(FeedbackViewTest, AFailureAfterTheFormWasThereCoversIt)
{
    open(FeedbackOverlay::Motion::moving);
    loaded();
    failed();
    runEventsFor(300ms); // the fade that had begun
    EXPECT_TRUE(overlay().isVisible());
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(colourAt(100, 400), bytes(white(0.96)));
}

TEST_F(FeedbackViewTest, EachLookHasItsColours)
{
    struct Case {
        Look look;
        QRgb header, rule, window;
    };
    open(FeedbackOverlay::Motion::still);
    for (const auto& [look, header, rule, window] :
         {Case{Look::light, 0xfcfcfc, 0x6cc487, 0xf5f5f5}, Case{Look::dark, 0x1f1f1f, 0x40985b, 0x171717},
          Case{Look::sakura, 0xfef9fb, 0xe490ac, 0xfcf2f5}}) {
        view->applyTheme(look);
        EXPECT_EQ(colourAt(300, 5), QColor(header));
        EXPECT_LE(distance(colourAt(300, 72), QColor(rule)), 1);
        EXPECT_LE(distance(colourAt(300, 73), QColor(rule)), 1);
        EXPECT_EQ(colourAt(100, 400), QColor(window));
    }
}

} // namespace

} // namespace orrinvale
