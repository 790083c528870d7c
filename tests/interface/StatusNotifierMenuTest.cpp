// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "tray/StatusNotifierMenu.h"

#include "tests/interface/InterfaceFixture.h"

namespace orrinvale
{

namespace
{

// Off any bus: what the host would call is called here.
struct StatusNotifierMenuTest : InterfaceFixture {
    QStringList titles(int parent, int depth)
    {
        NotifierMenuLayout layout{};
        menu.GetLayout(parent, depth, {}, layout);
        QStringList found;
        for (const auto& child : layout.children)
            found.append(child.value<NotifierMenuLayout>().properties[QStringLiteral("label")].toString());
        return found;
    }
    void click(int id)
    {
        menu.Event(id, QStringLiteral("clicked"), QDBusVariant(0), 0);
        settle();
    }

    std::vector<int> chosen;
    StatusNotifierMenu menu{QDBusConnection(QStringLiteral("none")),
                            QStringLiteral("/menu"),
                            {{QStringLiteral("Open"), [this] { chosen.push_back(1); }},
                             {QStringLiteral("Quit"), [this] { chosen.push_back(2); }},
                             {QStringLiteral("Nothing"), nullptr}}};
};

TEST_F(StatusNotifierMenuTest, TellsItsEntriesAsDeepAsAskedFor)
{
    EXPECT_EQ(titles(0, -1), (QStringList{QStringLiteral("Open"), QStringLiteral("Quit"), QStringLiteral("Nothing")}));
    EXPECT_EQ(titles(0, 1).size(), 3);
    EXPECT_TRUE(titles(0, 0).isEmpty());
    EXPECT_TRUE(titles(1, -1).isEmpty());
}

TEST_F(StatusNotifierMenuTest, TellsThePropertiesOfTheEntriesThatThereAre)
{
    const auto entries = menu.GetGroupProperties({2, 17, -1, 0}, {});
    ASSERT_EQ(entries.size(), 2);
    EXPECT_EQ(entries[0].id, 2);
    EXPECT_EQ(entries[0].properties[QStringLiteral("label")], QStringLiteral("Quit"));
    EXPECT_EQ(entries[1].properties[QStringLiteral("children-display")], QStringLiteral("submenu"));
    EXPECT_EQ(menu.GetProperty(1, QStringLiteral("label")).variant(), QStringLiteral("Open"));
}

TEST_F(StatusNotifierMenuTest, AClickChoosesAndNothingElseDoes)
{
    click(2);
    EXPECT_EQ(chosen, std::vector{2});
    menu.Event(1, QStringLiteral("hovered"), QDBusVariant(0), 0);
    menu.Event(0, QStringLiteral("opened"), QDBusVariant(0), 0);
    click(0);
    click(3);
    EXPECT_EQ(chosen.size(), 1U);
}

TEST_F(StatusNotifierMenuTest, SeveralEventsAtOnceAreEachHeardAndTheUnknownNamed)
{
    const auto clicked = QStringLiteral("clicked");
    EXPECT_EQ(
        menu.EventGroup(
            {{1, clicked, QDBusVariant(0), 0}, {9, clicked, QDBusVariant(0), 0}, {2, clicked, QDBusVariant(0), 0}}),
        QList<int>{9});
    settle();
    EXPECT_EQ(chosen, (std::vector{1, 2}));
    QList<int> unknown;
    EXPECT_TRUE(menu.AboutToShowGroup({0, 5}, unknown).isEmpty());
    EXPECT_EQ(unknown, QList<int>{5});
    EXPECT_FALSE(menu.AboutToShow(0));
}

} // namespace

} // namespace orrinvale
