// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/OnboardingView.h"

#include "kit/FocusRing.h"
#include "kit/OverlayScrollArea.h"
#include "kit/Symbols.h"
#include "kit/WindowButton.h"
#include "tests/interface/WindowFixture.h"

#include <QPainter>
#include <QScrollBar>

namespace orrinvale
{

namespace
{

struct OnboardingViewTest : InterfaceFixture {
    OnboardingViewTest()
    {
        view.resize(480, 520);
        view.applyTheme(Look::light);
        view.onDone = [this] { ++dones; };
        view.show();
    }
    QRect buttonPlace() const { return shownRect(view.button()).translated(view.button().pos()); }
    QScrollBar& scrollBar() const { return *view.scrollArea().verticalScrollBar(); }

    OnboardingView view;
    int dones = 0;
};

TEST_F(OnboardingViewTest, ThePointsAreFixedToTheCharacter)
{
    const auto& points = OnboardingView::points();
    EXPECT_EQ(points[0].icon, QStringLiteral("bolt.fill"));
    EXPECT_EQ(points[0].title, QStringLiteral("Keeps your Mac awake when it matters"));
    EXPECT_EQ(points[0].body,
              QStringLiteral("orrinvale watches for active downloads, sustained CPU load (builds, renders, exports), "
                             "and calls in apps like Zoom or Teams — and only then prevents sleep."));
    EXPECT_EQ(points[1].icon, QStringLiteral("camera.fill"));
    EXPECT_EQ(points[1].title, QStringLiteral("Briefly checks camera & mic state"));
    EXPECT_EQ(points[1].body,
              QStringLiteral("To confirm a call is actually active (not just an app sitting in the background), "
                             "orrinvale checks whether your camera or mic is in use. Nothing is recorded, read, or "
                             "sent anywhere."));
    EXPECT_EQ(points[2].icon, QStringLiteral("battery.25"));
    EXPECT_EQ(points[2].title, QStringLiteral("Battery-safe by default"));
    EXPECT_EQ(points[2].body,
              QStringLiteral("orrinvale automatically pauses itself below 20% battery while unplugged, so it won't "
                             "drain your Mac or let it overheat in a bag. Adjust this anytime in Settings."));
}

TEST_F(OnboardingViewTest, HasHeadingIntroductionAndButton)
{
    EXPECT_EQ(view.headingLabel().text(), QStringLiteral("Welcome to orrinvale"));
    EXPECT_EQ(view.introductionLabel().text(), QStringLiteral("A few things worth knowing before you start."));
    EXPECT_EQ(view.button().accessibleName(), QStringLiteral("Get Started"));
    EXPECT_EQ(view.button().kind(), WindowButton::Kind::filled);
}

TEST_F(OnboardingViewTest, StandsAsItWasDrawn)
{
    EXPECT_EQ(view.headingLabel().geometry(), QRect(40, 48, 400, 32));
    EXPECT_EQ(view.introductionLabel().geometry(), QRect(40, 84, 400, 18));
    EXPECT_EQ(view.scrollArea().geometry().topLeft(), QPoint(40, 134));
    EXPECT_EQ(view.scrollArea().width(), 400);
    EXPECT_EQ(buttonPlace(), QRect(40, 452, 400, 36));
    EXPECT_EQ(scrollBar().maximum(), 0); // everything fits
}

TEST_F(OnboardingViewTest, TextsHaveTheirSizesWeightsAndColours)
{
    for (const auto look : allLooks) {
        view.applyTheme(look);
        const auto& colours = WindowPalette::of(look);
        expectText(view.headingLabel(), {24, QFont::DemiBold, -0.35}, colours.primaryText);
        expectText(view.introductionLabel(), {13, QFont::Normal}, colours.quietText);
        EXPECT_EQ(bytes(view.button().ground()), bytes(colours.defaultButton));
        const auto image = picture(view);
        EXPECT_TRUE(isNearly(image.pixelColor(5, 5), colours.window));
        EXPECT_TRUE(isNearly(image.pixelColor(50, 460), colours.defaultButton));
        EXPECT_TRUE(isNearly(image.pixelColor(60, 134), colours.symbolWash));
        EXPECT_TRUE(isNearly(image.pixelColor(240, 440), colours.window)); // nothing fades
    }
}

TEST_F(OnboardingViewTest, TheButtonsCornersAreThoseOfAWideOne)
{
    const auto& colours = WindowPalette::of(Look::light);
    QImage expected(12, 12, QImage::Format_ARGB32);
    expected.fill(colours.window);
    QPainter painter(&expected);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colours.defaultButton);
    painter.drawRoundedRect(QRect(0, 0, 400, 36), 8, 8);
    painter.end();
    const auto image = picture(view);
    double difference = 0;
    for (int y = 0; y < 12; ++y)
        for (int x = 0; x < 12; ++x)
            difference += std::abs(image.pixelColor(40 + x, 452 + y).red() - expected.pixelColor(x, y).red()) / 255.0;
    EXPECT_LT(difference, 1); // in pixels; a radius of 7 or 9 is further away
}

TEST_F(OnboardingViewTest, TheButtonEndsIt)
{
    QTest::mouseClick(&view.button(), Qt::LeftButton, {}, middleOf(view.button()));
    for (const auto key : {Qt::Key_Return, Qt::Key_Space, Qt::Key_Enter})
        QTest::keyClick(&view.button(), key);
    EXPECT_EQ(dones, 4);
    view.onDone = nullptr;
    QTest::keyClick(&view.button(), Qt::Key_Return);
}

TEST_F(OnboardingViewTest, TheButtonIsTheOnlyStop)
{
    view.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
    view.setFocus();
    EXPECT_TRUE(view.button().hasFocus());
    QTest::keyClick(&view.button(), Qt::Key_Tab);
    EXPECT_TRUE(view.button().hasFocus());
}

TEST_F(OnboardingViewTest, LargerTextScrollsAboveTheFixedButton)
{
    const LargerText larger(1.5);
    view.applyTheme(Look::light);
    expectWhole(view.headingLabel(), 48);
    expectWhole(view.introductionLabel(), 27);
    EXPECT_GT(view.introductionLabel().y(), view.headingLabel().geometry().bottom());
    EXPECT_GT(view.scrollArea().y(), view.introductionLabel().geometry().bottom());
    EXPECT_EQ(buttonPlace().bottom() + 1, 488);
    EXPECT_GE(buttonPlace().height(), 36);
    EXPECT_EQ(buttonPlace().width(), 400);
    EXPECT_LT(view.scrollArea().geometry().bottom(), buttonPlace().top());
    EXPECT_GT(scrollBar().maximum(), 0);
    QTest::keyClick(&view.button(), Qt::Key_Escape);
    EXPECT_EQ(dones, 0);
}

TEST_F(OnboardingViewTest, WhatScrollsFadesIntoTheWindow)
{
    const LargerText larger(1.5);
    const auto& window = WindowPalette::of(Look::light).window;
    view.applyTheme(Look::light);
    scrollBar().setValue(scrollBar().maximum() / 2);
    const auto bottom = view.scrollArea().geometry().bottom();
    const auto image = picture(view);
    const auto darkestOf = [&](int y) {
        int darkest = 255;
        for (int x = 40; x < 440; ++x)
            darkest = std::min(darkest, image.pixelColor(x, y).green());
        return darkest;
    };
    EXPECT_GE(darkestOf(bottom), window.green() - 14);
    EXPECT_TRUE(isNearly(image.pixelColor(42, bottom), window, 3));
}

TEST_F(OnboardingViewTest, AtTheEndNothingFades)
{
    const LargerText larger(1.5);
    view.applyTheme(Look::light);
    const auto darkestAbove = [this](int up) {
        const auto image = picture(view);
        const auto y = view.scrollArea().geometry().bottom() - up;
        int darkest = 255;
        for (int x = 96; x < 440; ++x)
            darkest = std::min(darkest, image.pixelColor(x, y).green());
        return darkest;
    };
    scrollBar().setValue(scrollBar().maximum());
    const auto quiet = WindowPalette::of(Look::light).quietText.green();
    int darkest = 255;
    for (int up = 4; up < 22; ++up) // the last line of text
        darkest = std::min(darkest, darkestAbove(up));
    EXPECT_LE(darkest, quiet + 20);
}

TEST_F(OnboardingViewTest, TheKeyboardScrollsWhatDoesNotFit)
{
    const LargerText larger(1.5);
    view.applyTheme(Look::light);
    view.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
    view.setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    EXPECT_GT(scrollBar().value(), 0);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_End);
    EXPECT_EQ(scrollBar().value(), scrollBar().maximum());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Home);
    EXPECT_EQ(scrollBar().value(), 0);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_PageDown);
    EXPECT_GT(scrollBar().value(), 0);
}

} // namespace

} // namespace orrinvale
