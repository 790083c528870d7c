// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "kit/TextLabel.h"

#include "kit/Typography.h"
#include "tests/interface/InterfaceFixture.h"

#include <QAccessible>

namespace orrinvale
{

namespace
{

const auto markup = QStringLiteral("R&D <b>x</b>.part");
const auto longName =
    QStringLiteral("Downloading a-file-whose-name-is-far-too-long-for-the-card-that-shows-it.tar.gz.part");

struct TextLabelTest : InterfaceFixture {
    void dress(TextLabel& label, const QString& text, int width)
    {
        label.setStyle(scaledFont(13, QFont::Normal, 0, 1), Qt::black);
        label.resize(width, 18);
        label.setContent(text);
        label.show();
    }
    int inkedColumns(TextLabel& label, int from, int to)
    {
        QImage image(label.size(), QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        label.render(&image, {}, {}, {});
        auto count = 0;
        for (int x = from; x < to; ++x)
            for (int y = 0; y < image.height(); ++y)
                if (image.pixelColor(x, y).alpha() > 64) {
                    ++count;
                    break;
                }
        return count;
    }

    TextLabel wrapping{nullptr};
    TextLabel eliding{nullptr, Qt::ElideMiddle};
};

TEST_F(TextLabelTest, MarkupIsShownAsItIs)
{
    for (auto* label : {&wrapping, &eliding}) {
        dress(*label, markup, 300);
        EXPECT_EQ(label->textFormat(), Qt::PlainText);
        EXPECT_EQ(label->text(), markup);
        EXPECT_EQ(label->accessibleName(), markup);
    }
}

TEST_F(TextLabelTest, ATooltipEscapesMarkup)
{
    EXPECT_EQ(plainToolTip(markup), QStringLiteral("<qt>R&amp;D &lt;b&gt;x&lt;/b&gt;.part</qt>"));
}

TEST_F(TextLabelTest, AWholeTextHasNoTooltip)
{
    dress(eliding, QStringLiteral("Short"), 228);
    EXPECT_TRUE(eliding.toolTip().isEmpty());
}

TEST_F(TextLabelTest, ACutTextIsWholeInTheTooltipAndToAssistiveTechnology)
{
    dress(eliding, longName, 228);
    EXPECT_EQ(eliding.toolTip(), plainToolTip(longName));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&eliding)->text(QAccessible::Name), longName);
    EXPECT_GT(inkedColumns(eliding, 0, 20), 0) << "its beginning is seen";
    EXPECT_GT(inkedColumns(eliding, 200, 228), 0) << "and its end";
}

TEST_F(TextLabelTest, TheTooltipComesAndGoesWithTheWidth)
{
    dress(eliding, longName, 228);
    eliding.resize(1000, 18);
    EXPECT_TRUE(eliding.toolTip().isEmpty());
    eliding.resize(100, 18);
    EXPECT_FALSE(eliding.toolTip().isEmpty());
    eliding.setContent(QStringLiteral("Short"));
    EXPECT_TRUE(eliding.toolTip().isEmpty());
}

TEST_F(TextLabelTest, AWrappingTextTakesTheLinesThatItNeeds)
{
    dress(wrapping, QStringLiteral("Short"), 300);
    EXPECT_EQ(wrapping.heightFor(300, 20), 20);
    wrapping.setContent(QString());
    EXPECT_EQ(wrapping.heightFor(300, 20), 20) << "an empty text is one line";
    wrapping.setContent(QStringLiteral("one two three four five six seven eight nine ten eleven twelve"));
    EXPECT_EQ(wrapping.heightFor(wrapping.naturalWidth() + 2, 20), 20);
    EXPECT_EQ(wrapping.heightFor(wrapping.naturalWidth() * 2 / 3, 20), 40);
    wrapping.setContent(QStringLiteral("one\ntwo"));
    EXPECT_EQ(wrapping.heightFor(300, 20), 40);
}

TEST_F(TextLabelTest, AWrappingTextLosesNothingOfALineThatFitsExactly)
{
    dress(wrapping, QStringLiteral("Pause orrinvale"), 300);
    EXPECT_EQ(wrapping.heightFor(wrapping.naturalWidth(), 16), 16);
}

TEST_F(TextLabelTest, ItsNaturalWidthIsEnoughForOneLineAtEverySize)
{
    for (const auto* text : {"Your Mac can sleep normally", "fff", "Wave AWAY", "/ / j"}) {
        wrapping.setContent(QString::fromUtf8(text));
        for (auto pixels = 9.0; pixels < 30; pixels += 0.1) {
            auto font = QApplication::font();
            font.setPointSizeF(pixels * 72 / 96);
            wrapping.setStyle(font, Qt::black);
            EXPECT_EQ(wrapping.heightFor(wrapping.naturalWidth(), 1), 1) << pixels << ": " << text;
        }
    }
}

TEST_F(TextLabelTest, AnElidingTextIsAlwaysOneLine)
{
    dress(eliding, longName, 100);
    EXPECT_EQ(eliding.heightFor(100, 18), 18);
}

TEST_F(TextLabelTest, PaintsAsAlignedInItsColourAtItsOpacity)
{
    dress(wrapping, QStringLiteral("Short"), 200);
    EXPECT_GT(inkedColumns(wrapping, 0, 40), 10);
    EXPECT_EQ(inkedColumns(wrapping, 100, 200), 0);
    wrapping.setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    EXPECT_GT(inkedColumns(wrapping, 160, 200), 10);
    EXPECT_EQ(inkedColumns(wrapping, 0, 100), 0);
    wrapping.setOpacity(0);
    EXPECT_EQ(inkedColumns(wrapping, 0, 200), 0);
    EXPECT_EQ(wrapping.opacity(), 0);
}

TEST(Typography, TheTextScaleIsTheDesktopsFontOverThirteen)
{
    const auto before = QApplication::font();
    for (const auto& [pixels, scale] : {std::pair(13, 1.0), {10, 1.0}, {16, 16 / 13.0}, {30, 1.5}}) {
        QFont font;
        font.setPixelSize(pixels);
        QApplication::setFont(font);
        EXPECT_NEAR(textScale(), scale, 1e-9) << pixels;
        EXPECT_NEAR(pixelSizeOf(textFont(12)), 12 * scale, 0.01);
    }
    QApplication::setFont(before);
}

TEST(Typography, FontsAreTheDesktopsInTheirOwnSizeWeightAndTracking)
{
    const auto font = scaledFont(9, QFont::DemiBold, 0.6, 1.5);
    EXPECT_EQ(font.family(), QApplication::font().family());
    EXPECT_NEAR(pixelSizeOf(font), 13.5, 0.01);
    EXPECT_EQ(font.weight(), QFont::DemiBold);
    EXPECT_NEAR(font.letterSpacing(), 0.9, 0.02);
    EXPECT_EQ(font.letterSpacingType(), QFont::AbsoluteSpacing);
}

// Of what a label in black on white shows; black and grey have none.
int mostSaturation(const QString& text)
{
    TextLabel label(nullptr, Qt::ElideRight);
    label.setContent(text);
    label.setStyle(textFont(14), Qt::black);
    label.resize(200, 24);
    QImage image(label.size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    label.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
    auto most = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            most = std::max(most, image.pixelColor(x, y).hsvSaturation());
    }
    return most;
}

TEST(TextLabelEmoji, CharactersThatArePicturesOrAskForItAreDrawnInColour)
{
    EXPECT_GT(mostSaturation(QStringLiteral("⚙️  Settings")), 40);
    EXPECT_GT(mostSaturation(QStringLiteral("Mac is about to sleep. ☕")), 40);
    EXPECT_GT(mostSaturation(QStringLiteral("🍵  Activity Log")), 40);
}

TEST(TextLabelEmoji, OtherCharactersAreTextInTheLabelsColour)
{
    EXPECT_LT(mostSaturation(QStringLiteral("⚙  Settings 1 # ©")), 10);
}

} // namespace

} // namespace orrinvale
