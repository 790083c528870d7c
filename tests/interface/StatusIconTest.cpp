// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/StatusIcon.h"

#include "kit/Colours.h"
#include "orrinvale/WakeState.h"
#include "tests/interface/InterfaceFixture.h"

namespace orrinvale
{

namespace
{

const auto nowhere = QStringLiteral(":/nowhere/");

QImage drawing(const WakeState& state, int side = 18, const QString& folder = QStringLiteral(":/images/"))
{
    return statusIcon(state, folder).pixmap(side, side).toImage().convertToFormat(QImage::Format_ARGB32);
}
int count(const QImage& image, const std::function<bool(const QColor&)>& isCounted)
{
    auto pixels = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            pixels += isCounted(image.pixelColor(x, y));
    return pixels;
}
int inked(const QImage& image)
{
    return count(image, [](const QColor& colour) { return colour.alpha() > 0; });
}
int strongest(const QImage& image)
{
    auto alpha = 0;
    count(image, [&](const QColor& colour) {
        alpha = std::max(alpha, colour.alpha());
        return false;
    });
    return alpha;
}

TEST(StatusIcon, AwakeAndCoolingDownAreTheFullCupAndIdleTheEmptyOne)
{
    const auto awake = drawing(WakeState::awake("reason"));
    EXPECT_EQ(awake, drawing(WakeState::cooldown(12)));
    EXPECT_NE(awake, drawing(WakeState::idle()));
    const auto isGreen = [](const QColor& c) { return c == QColor(0x4a, 0x8c, 0x38); };
    EXPECT_GT(count(awake, isGreen), 20);
    EXPECT_EQ(count(drawing(WakeState::idle()), isGreen), 0);
    EXPECT_GT(count(drawing(WakeState::idle()), [](const QColor& c) { return c == QColor(0xc2, 0xbf, 0xb9); }), 10);
}

// The line of a cup and its saucer: what stands out from the panel must be enough of it to be a cup.
TEST(StatusIcon, TheEmptyCupStandsOutFromLightDarkAndMiddlePanels)
{
    for (const auto side : {16, 18, 22, 24, 32, 36, 48})
        for (const QColor panel : {QColor(Qt::white), QColor(0xf2, 0xf2, 0xf0), QColor(0x55, 0x55, 0x55),
                                   QColor(0x1e, 0x1f, 0x22), QColor(Qt::black)}) {
            SCOPED_TRACE(testing::Message() << side << " on " << panel.name().toStdString());
            const auto image = drawing(WakeState::idle(), side);
            const auto standsOut = [&panel](const QColor& c) { return contrastRatio(blended(panel, c), panel) >= 3; };
            const auto inner = pictureSide(side);
            EXPECT_GT(count(image, standsOut), inner * inner / 9);
            // Both walls of the cup, and its saucer.
            const auto margin = (side - inner) / 2;
            const auto part = [&](double left, double top, double width, double height) {
                const auto at = [&](double units) { return static_cast<int>(std::lround(units * inner / 18)); };
                return image.copy(margin + at(left), margin + at(top), at(width), at(height));
            };
            EXPECT_GT(count(part(1, 5, 3, 6), standsOut), 0) << "left wall";
            EXPECT_GT(count(part(14, 5, 3, 6), standsOut), 0) << "right wall";
            EXPECT_GT(count(part(3, 14, 12, 4), standsOut), inner / 2) << "saucer";
        }
}

TEST(StatusIcon, HasAPictureOfItsOwnForEverySizeThatTraysAskFor)
{
    for (const auto side : {16, 18, 22, 24, 32, 36, 44, 48, 64}) {
        const auto image = drawing(WakeState::awake("reason"), side);
        EXPECT_EQ(image.size(), QSize(side, side));
        EXPECT_GT(inked(image), side * side / 6) << side;
    }
}

TEST(StatusIcon, IsNotRecolouredByTheDesktop)
{
    EXPECT_FALSE(statusIcon(WakeState::idle()).isMask());
    EXPECT_FALSE(statusIcon(WakeState::awake("reason")).isMask());
}

TEST(StatusIcon, PicturesKeepTheirLinesOnWholePixels)
{
    EXPECT_EQ(pictureSide(16), 16);
    EXPECT_EQ(pictureSide(18), 18);
    EXPECT_EQ(pictureSide(22), 18);
    EXPECT_EQ(pictureSide(24), 18);
    EXPECT_EQ(pictureSide(32), 27);
    EXPECT_EQ(pictureSide(36), 36);
    EXPECT_EQ(pictureSide(64), 63);
}

TEST(StatusIcon, WithoutPicturesAnEmojiTakesTheirPlace)
{
    const auto awake = drawing(WakeState::awake("reason"), 36, nowhere);
    const auto idle = drawing(WakeState::idle(), 36, nowhere);
    EXPECT_EQ(awake, drawing(WakeState::cooldown(3), 36, nowhere));
    EXPECT_NE(awake, idle);
    EXPECT_GT(inked(awake), 100);
    EXPECT_GT(inked(idle), 100);
}

TEST(StatusIcon, TheIdleEmojiIsFaint)
{
    EXPECT_GT(strongest(drawing(WakeState::awake("reason"), 36, nowhere)), 240);
    EXPECT_NEAR(strongest(drawing(WakeState::idle(), 36, nowhere)), 0.4 * 255, 3);
}

TEST(StatusToolTip, IsTheLabelAndTheStatus)
{
    EXPECT_EQ(statusToolTip(WakeState::awake("Downloading film.mkv.part")),
              QStringLiteral("Awake: Downloading film.mkv.part"));
    EXPECT_EQ(statusToolTip(WakeState::cooldown(30)), QStringLiteral("Cooling Down: Going idle in 30s…"));
    EXPECT_EQ(statusToolTip(WakeState::cooldown(0)), QStringLiteral("Cooling Down: Going idle in 0s…"));
    EXPECT_EQ(statusToolTip(WakeState::idle()), QStringLiteral("Idle: System may sleep normally"));
}

TEST(StatusToolTip, ShowsControlCharactersAsSigns)
{
    EXPECT_EQ(statusToolTip(WakeState::awake("Downloading a\x1b[31m\nb\a.part")),
              QStringLiteral("Awake: Downloading a␛[31m␊b␇.part"));
}

TEST(StatusToolTip, IsPlainTextAndKeepsEveryCharacter)
{
    EXPECT_EQ(statusToolTip(WakeState::awake("R&D <b>x</b> – 🌿")), QStringLiteral("Awake: R&D <b>x</b> – 🌿"));
}

} // namespace

} // namespace orrinvale
