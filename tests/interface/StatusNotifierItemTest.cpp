// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "tray/StatusNotifierItem.h"

#include "tests/interface/InterfaceFixture.h"

#include <QMetaProperty>
#include <QSignalSpy>

namespace orrinvale
{

namespace
{

QIcon iconOf(const QColor& colour, std::initializer_list<int> sides)
{
    QIcon icon;
    for (const auto side : sides) {
        QPixmap pixmap(side, side);
        pixmap.fill(colour);
        icon.addPixmap(pixmap);
    }
    return icon;
}

// Off any bus: what the host would call is called here.
struct StatusNotifierItemTest : InterfaceFixture {
    StatusNotifierItem item{QDBusConnection(QStringLiteral("none"))};
};

TEST(NotifierPixmaps, AreOfEverySizeAsARGBInNetworkByteOrder)
{
    const auto pixmaps = notifierPixmaps(iconOf(QColor(0x11, 0x22, 0x33), {2, 3}));
    ASSERT_EQ(pixmaps.size(), 2);
    for (const auto& pixmap : pixmaps) {
        EXPECT_EQ(pixmap.width, pixmap.height);
        EXPECT_EQ(pixmap.pixels, QByteArray("\xff\x11\x22\x33").repeated(pixmap.width * pixmap.height));
    }
    EXPECT_TRUE(notifierPixmaps(QIcon()).isEmpty());
}

TEST(NotifierToolTip, APlainTextIsTheTitleAlone)
{
    const auto toolTip = notifierToolTip(QStringLiteral("Idle: System may sleep normally"));
    EXPECT_EQ(toolTip.title, QStringLiteral("Idle: System may sleep normally"));
    EXPECT_TRUE(toolTip.text.isEmpty());
}

TEST(NotifierToolTip, ATextLikeMarkupIsEscapedBelowATitle)
{
    const auto toolTip = notifierToolTip(QStringLiteral("Awake: R&D <b>"));
    EXPECT_EQ(toolTip.title, QStringLiteral("orrinvale"));
    EXPECT_EQ(toolTip.text, QStringLiteral("Awake: R&amp;D &lt;b&gt;"));
}

TEST_F(StatusNotifierItemTest, SaysWhatItIs)
{
    EXPECT_EQ(item.category(), QStringLiteral("ApplicationStatus"));
    EXPECT_EQ(item.name(), QStringLiteral("orrinvale"));
    EXPECT_EQ(item.status(), QStringLiteral("Active"));
}

TEST_F(StatusNotifierItemTest, NamesNoMenu)
{
    EXPECT_EQ(item.metaObject()->indexOfProperty("Menu"), -1);
    EXPECT_FALSE(item.property("ItemIsMenu").toBool());
}

TEST_F(StatusNotifierItemTest, LeftAndRightClickAreTheSameAndOthersNothing)
{
    std::vector<QPoint> clicks;
    item.onClick = [&](const QPoint& place) { clicks.push_back(place); };
    item.Activate(10, 20);
    EXPECT_EQ(clicks, std::vector{QPoint(10, 20)});
    item.ContextMenu(30, 40);
    EXPECT_EQ(clicks, (std::vector{QPoint(10, 20), QPoint(30, 40)}));
    item.SecondaryActivate(10, 20);
    item.Scroll(120, QStringLiteral("vertical"));
    EXPECT_EQ(clicks.size(), 2U);
}

TEST_F(StatusNotifierItemTest, TakesAnActivationTokenOfUsualLengthOnly)
{
    item.ProvideXdgActivationToken(QString(4096, QLatin1Char('t')));
    EXPECT_EQ(qgetenv("XDG_ACTIVATION_TOKEN").size(), 4096);
    StatusNotifierItem::forgetActivationToken();
    item.ProvideXdgActivationToken(QString(4097, QLatin1Char('t')));
    item.ProvideXdgActivationToken(QString(2049, QChar(0x00fc)));
    EXPECT_FALSE(qEnvironmentVariableIsSet("XDG_ACTIVATION_TOKEN"));
}

TEST_F(StatusNotifierItemTest, AClickThatNobodyListensToDoesNothing)
{
    item.Activate(0, 0);
    item.ContextMenu(0, 0);
}

TEST_F(StatusNotifierItemTest, TellsOfNewPicturesAndTexts)
{
    QSignalSpy icons(&item, &StatusNotifierItem::NewIcon);
    QSignalSpy texts(&item, &StatusNotifierItem::NewToolTip);
    item.setIcon(iconOf(Qt::red, {18}));
    EXPECT_EQ(item.iconPixmap().size(), 1);
    EXPECT_EQ(icons.count(), 1);
    EXPECT_EQ(texts.count(), 0);
    item.setToolTip(QStringLiteral("Awake: R&D <b>"));
    EXPECT_EQ(item.toolTip().text, QStringLiteral("Awake: R&amp;D &lt;b&gt;"));
    EXPECT_EQ(texts.count(), 1);
}

} // namespace

} // namespace orrinvale
