// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "feedback/FeedbackWindow.h"

#include "kit/WindowPlacement.h"
#include "tests/interface/WindowFixture.h"

#include <QScreen>

namespace orrinvale
{

namespace
{

struct FeedbackWindowTest : InterfaceFixture {
    std::shared_ptr<FeedbackState> state = std::make_shared<FeedbackState>();
    FeedbackView* view = new FeedbackView(state, time, FeedbackOverlay::Motion::still);
    FeedbackWindow window{view, Look::light};
};

TEST_F(FeedbackWindowTest, StandsInTheMiddleOfTheScreen)
{
    window.show();
    const auto screen = QGuiApplication::primaryScreen()->availableGeometry();
    EXPECT_EQ(window.pos(), screen.center() - QRect(QPoint(), feedbackFrame::size).center());
}

TEST_F(FeedbackWindowTest, IsStyledAnewWhenTheDesktopsFontChanges)
{
    window.show();
    const auto& label = *view->findChild<TextLabel*>(QString(), Qt::FindDirectChildrenOnly);
    const auto before = pixelSizeOf(label.font());
    const LargerText larger(1.5);
    EXPECT_NEAR(pixelSizeOf(label.font()), 1.5 * before, 0.01);
}

TEST(WindowPlacement, AWindowLargerThanTheScreenShowsItsUpperLeftCorner)
{
    const QRect available(100, 30, 600, 400); // beside a panel
    EXPECT_EQ(cornerInMiddle(available, {200, 100}), QPoint(300, 180));
    EXPECT_EQ(cornerInMiddle(available, {520, 640}), QPoint(140, 30));
    EXPECT_EQ(cornerInMiddle(available, {700, 100}), QPoint(100, 180));
}

} // namespace

} // namespace orrinvale
