// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/SettingsSection.h"

#include "orrinvale/ToggleRow.h"
#include "tests/interface/WindowFixture.h"

namespace orrinvale
{

namespace
{

struct SettingsSectionTest : InterfaceFixture {
    SettingsSectionTest()
    {
        for (auto* section : {&bare, &captioned}) {
            for (int i = 0; i < 2; ++i)
                section->addRow(new ToggleRow(QStringLiteral("Title"), QStringLiteral("Subtitle"), section));
            show(*section, Look::light);
        }
    }
    static void show(SettingsSection& section, Look look, int width = 500)
    {
        section.applyTheme(WindowPalette::of(look));
        section.resize(width, section.heightFor(width));
        section.show();
    }
    static std::vector<QRect> rowPlaces(const SettingsSection& section)
    {
        std::vector<QRect> places;
        for (const auto* row : section.findChildren<ToggleRow*>())
            places.push_back(row->geometry());
        return places;
    }

    SettingsSection bare{QStringLiteral("GENERAL"), QString(), nullptr};
    SettingsSection captioned{QStringLiteral("BATTERY & SAFETY"), QStringLiteral("About this."), nullptr};
};

TEST_F(SettingsSectionTest, HasAHeadAndPerhapsACaption)
{
    EXPECT_EQ(bare.headLabel().text(), QStringLiteral("GENERAL"));
    EXPECT_FALSE(bare.hasCaption());
    EXPECT_FALSE(bare.captionLabel().isVisible());
    EXPECT_EQ(captioned.headLabel().text(), QStringLiteral("BATTERY & SAFETY"));
    EXPECT_TRUE(captioned.hasCaption());
    EXPECT_TRUE(captioned.captionLabel().isVisible());
    EXPECT_EQ(captioned.captionLabel().text(), QStringLiteral("About this."));
}

TEST_F(SettingsSectionTest, StandsAsItWasDrawn)
{
    EXPECT_EQ(bare.headLabel().geometry(), QRect(0, 0, 500, 16));
    EXPECT_THAT(rowPlaces(bare), ElementsAre(QRect(1, 25, 498, 56), QRect(1, 82, 498, 56)));
    EXPECT_EQ(bare.height(), 16 + 8 + 1 + 56 + 1 + 56 + 1);
    EXPECT_EQ(captioned.captionLabel().geometry(), QRect(0, 18, 500, 15));
    EXPECT_THAT(rowPlaces(captioned), ElementsAre(QRect(1, 42, 498, 56), QRect(1, 99, 498, 56)));
    EXPECT_EQ(captioned.height(), 16 + 2 + 15 + 8 + 1 + 56 + 1 + 56 + 1);
}

TEST_F(SettingsSectionTest, TheRowsAreOnACardBetweenHairlines)
{
    for (const auto look : allLooks) {
        const auto& colours = WindowPalette::of(look);
        show(bare, look);
        const auto image = picture(bare);
        EXPECT_TRUE(isNearly(image.pixelColor(250, 24), colours.border));
        EXPECT_TRUE(isNearly(image.pixelColor(250, 25), colours.card));
        EXPECT_TRUE(isNearly(image.pixelColor(0, 60), colours.border));
        EXPECT_TRUE(isNearly(image.pixelColor(499, 60), colours.border));
        EXPECT_TRUE(isNearly(image.pixelColor(250, 138), colours.border));
        // Between the rows, from the padding to the card's edge.
        EXPECT_TRUE(isNearly(image.pixelColor(15, 81), colours.card));
        EXPECT_TRUE(isNearly(image.pixelColor(17, 81), colours.border));
        EXPECT_TRUE(isNearly(image.pixelColor(498, 81), colours.border));
        EXPECT_TRUE(isNearly(image.pixelColor(250, 80), colours.card));
        EXPECT_TRUE(isNearly(image.pixelColor(250, 82), colours.card));
        EXPECT_FALSE(isNearly(image.pixelColor(0, 24), colours.border)); // round
    }
}

TEST_F(SettingsSectionTest, TextsHaveTheirSizesWeightsAndColours)
{
    for (const auto look : allLooks) {
        show(captioned, look);
        expectText(captioned.headLabel(), {11, QFont::DemiBold, 0.55}, WindowPalette::of(look).quietText);
        expectText(captioned.captionLabel(), {11, QFont::Normal}, WindowPalette::of(look).quietText);
    }
}

TEST_F(SettingsSectionTest, ACaptionWrapsWhereThereIsNoRoom)
{
    SettingsSection narrow(QStringLiteral("HEAD"), QStringLiteral("words ").repeated(40).trimmed(), nullptr);
    narrow.addRow(new ToggleRow(QStringLiteral("Title"), QStringLiteral("Subtitle"), &narrow));
    show(narrow, Look::light, 420);
    const auto lines = narrow.captionLabel().heightFor(420, 15) / 15;
    EXPECT_GE(lines, 3);
    EXPECT_EQ(narrow.captionLabel().height(), lines * 15);
    EXPECT_EQ(rowPlaces(narrow)[0].top(), 16 + 2 + lines * 15 + 8 + 1);
}

TEST_F(SettingsSectionTest, LargerTextIsWhole)
{
    const LargerText larger(1.5);
    show(captioned, Look::light, 420);
    expectWhole(captioned.headLabel(), 24);
    expectWhole(captioned.captionLabel(), 23);
    EXPECT_GT(captioned.captionLabel().y(), captioned.headLabel().geometry().bottom());
    EXPECT_GT(rowPlaces(captioned)[0].top(), captioned.captionLabel().geometry().bottom());
    EXPECT_GT(rowPlaces(captioned)[0].height(), 56);
    EXPECT_EQ(rowPlaces(captioned)[1].bottom() + 2, captioned.height());
}

} // namespace

} // namespace orrinvale
