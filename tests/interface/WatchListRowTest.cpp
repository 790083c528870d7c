// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/WatchListRow.h"

#include "kit/FocusRing.h"
#include "kit/WindowButton.h"
#include "tests/interface/WindowFixture.h"

namespace orrinvale
{

namespace
{

struct WatchListRowTest : InterfaceFixture {
    WatchListRow& row(const std::string& label, const std::string& bundleID, int width = 498)
    {
        icon = new QWidget;
        made = std::make_unique<WatchListRow>(CustomProcess{UUID::random(), bundleID, label, 3}, icon, nullptr);
        made->applyTheme(WindowPalette::of(Look::light));
        made->resize(width, made->heightNeeded());
        made->show();
        return *made;
    }
    WatchListRow& usual() { return row("HandBrake active", "fr.handbrake.HandBrake"); }
    QRect buttonPlace() const { return shownRect(made->deleteButton()).translated(made->deleteButton().pos()); }

    QWidget* icon = nullptr;
    std::unique_ptr<WatchListRow> made;
};

TEST_F(WatchListRowTest, ShowsLabelAndIdentifier)
{
    EXPECT_EQ(usual().labelLabel().text(), QStringLiteral("HandBrake active"));
    EXPECT_EQ(made->bundleIDLabel().text(), QStringLiteral("fr.handbrake.HandBrake"));
    EXPECT_EQ(made->deleteButton().symbol(), QStringLiteral("trash"));
    EXPECT_EQ(made->deleteButton().kind(), WindowButton::Kind::icon);
    EXPECT_EQ(made->deleteButton().accessibleName(), QStringLiteral("Delete HandBrake active"));
}

TEST_F(WatchListRowTest, ShowsControlCharactersAsSigns)
{
    EXPECT_EQ(row("Hand\nBrake", "fr\x1b").labelLabel().text(), QStringLiteral("Hand␊Brake"));
    EXPECT_EQ(made->bundleIDLabel().text(), QStringLiteral("fr␛"));
    EXPECT_EQ(made->deleteButton().accessibleName(), QStringLiteral("Delete Hand␊Brake"));
    EXPECT_EQ(made->process().label, "Hand\nBrake");
}

TEST_F(WatchListRowTest, StandsAsItWasDrawn)
{
    EXPECT_EQ(usual().height(), 48);
    EXPECT_EQ(icon->geometry(), QRect(16, 10, 28, 28));
    EXPECT_EQ(icon->parent(), made.get());
    EXPECT_EQ(made->labelLabel().geometry().topLeft(), QPoint(56, 8));
    EXPECT_EQ(made->labelLabel().height(), 17);
    EXPECT_EQ(made->bundleIDLabel().geometry().topLeft(), QPoint(56, 25));
    EXPECT_EQ(made->bundleIDLabel().height(), 14);
    EXPECT_EQ(buttonPlace(), QRect(498 - 10 - 28, 10, 28, 28));
    // The 14 px glyph's edge is on the card's padding, within the outline.
    EXPECT_EQ(buttonPlace().center().x() + 1 + 7, 498 - 16 - 1);
}

TEST_F(WatchListRowTest, TextsHaveTheirSizesAndColours)
{
    for (const auto look : allLooks) {
        const auto& colours = WindowPalette::of(look);
        usual().applyTheme(colours);
        expectText(made->labelLabel(), {12, QFont::Normal}, colours.primaryText);
        expectText(made->bundleIDLabel(), {10, QFont::Normal}, colours.quietText);
        EXPECT_EQ(bytes(made->deleteButton().ink()), bytes(colours.quietText));
        EXPECT_EQ(bytes(icon->palette().color(QPalette::WindowText)), bytes(colours.tertiaryText));
        pointAt(made->deleteButton());
        EXPECT_EQ(bytes(made->deleteButton().ink()), bytes(colours.danger));
        EXPECT_EQ(bytes(made->deleteButton().ground()), bytes(colours.dangerWash));
    }
}

TEST_F(WatchListRowTest, LongNamesAreCutWithTheWholeInTheirTooltips)
{
    const std::string label = "A very long <b>label</b> & more of it than any row of this width could hold at all";
    const std::string identifier = "org.example.department.of.extremely.descriptive.identifiers.of.software.RenderFarm";
    row(label, identifier, 418);
    EXPECT_EQ(made->labelLabel().toolTip(), plainToolTip(QString::fromStdString(label)));
    EXPECT_EQ(made->bundleIDLabel().toolTip(), plainToolTip(QString::fromStdString(identifier)));
    EXPECT_EQ(made->labelLabel().textFormat(), Qt::PlainText);
    EXPECT_EQ(buttonPlace().left() - made->labelLabel().geometry().right() - 1, 12);
    EXPECT_EQ(made->height(), 48);
}

TEST_F(WatchListRowTest, EmptyTextsLeaveTheirRoom)
{
    row("", "");
    EXPECT_EQ(made->height(), 48);
    EXPECT_EQ(made->deleteButton().accessibleName(), QStringLiteral("Delete "));
}

TEST_F(WatchListRowTest, LargerTextIsWhole)
{
    const LargerText larger(1.5);
    usual();
    EXPECT_EQ(made->height(), 26 + 21 + 16);
    expectWhole(made->labelLabel(), 26);
    expectWhole(made->bundleIDLabel(), 21);
    EXPECT_GE(made->bundleIDLabel().y(), made->labelLabel().geometry().bottom() + 1);
    EXPECT_EQ(icon->size(), QSize(28, 28));
    EXPECT_LT(made->labelLabel().geometry().right(), buttonPlace().left());
}

} // namespace

} // namespace orrinvale
