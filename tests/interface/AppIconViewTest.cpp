// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/AppIconView.h"

#include "orrinvale/AppIcons.h"
#include "tests/interface/InterfaceFixture.h"

#include <QPainter>

#include <fstream>

namespace orrinvale
{

namespace
{

struct AppIconsTest : InterfaceFixture {
    // A file with a picture of one colour.
    QString file(const char* name, const QColor& colour, QSize size = {28, 28}) const
    {
        QImage image(size, QImage::Format_ARGB32);
        image.fill(colour);
        const auto path = QString::fromStdString((folder.path / name).string());
        EXPECT_TRUE(image.save(path));
        return path;
    }
    QString brokenFile() const
    {
        std::ofstream(folder.path / "broken.png") << "no picture";
        return QString::fromStdString((folder.path / "broken.png").string());
    }

    TemporaryFolder folder;
};

TEST_F(AppIconsTest, AreFilesOrNamesInTheTheme)
{
    EXPECT_EQ(appIconPixmap(file("red.png", Qt::red), 24, 1).toImage().pixelColor(12, 12), QColor(Qt::red));
    EXPECT_TRUE(appIconPixmap(QStringLiteral("no-such-icon"), 24, 1).isNull());
    EXPECT_TRUE(appIconPixmap(QStringLiteral("/no/such/icon.png"), 24, 1).isNull());
    EXPECT_TRUE(appIconPixmap(brokenFile(), 24, 1).isNull());
    EXPECT_TRUE(appIconPixmap({}, 24, 1).isNull());
}

TEST_F(AppIconsTest, AreSharpOnDensePixels)
{
    EXPECT_EQ(appIconPixmap(file("red.png", Qt::red, {96, 96}), 24, 2).size(), QSize(48, 48));
}

TEST_F(AppIconsTest, AreFittedIntoTheirSquare)
{
    QImage canvas(28, 28, QImage::Format_ARGB32);
    canvas.fill(Qt::white);
    QPainter painter(&canvas);
    paintAppIcon(painter, QRectF(0, 0, 28, 28), appIconPixmap(file("wide.png", Qt::red, {8, 4}), 28, 1), Qt::blue);
    painter.end();
    EXPECT_EQ(canvas.pixelColor(2, 14), QColor(Qt::red));
    EXPECT_EQ(canvas.pixelColor(14, 2), QColor(Qt::white));
}

TEST_F(AppIconsTest, AreLoadedOneByOneInTurnsOfTheirOwn)
{
    AppIcons icons(time, 24);
    int loaded = 0;
    icons.onLoaded = [&] { ++loaded; };
    const auto red = file("red.png", Qt::red);
    const auto blue = file("blue.png", Qt::blue);
    EXPECT_EQ(icons.find(red, 1), nullptr);
    EXPECT_EQ(icons.find(blue, 1), nullptr);
    time.runPending();
    EXPECT_EQ(loaded, 1);
    ASSERT_NE(icons.find(red, 1), nullptr);
    EXPECT_FALSE(icons.find(red, 1)->isNull());
    EXPECT_EQ(icons.find(blue, 1), nullptr); // asks again
    EXPECT_EQ(icons.find(red, 2), nullptr);
    time.runPending();
    EXPECT_NE(icons.find(blue, 1), nullptr);
}

TEST_F(AppIconsTest, WhatDoesNotExistIsLookedForOnce)
{
    AppIcons icons(time, 24);
    int loaded = 0;
    icons.onLoaded = [&] { ++loaded; };
    icons.find(QStringLiteral("none"), 1);
    time.runPending();
    ASSERT_NE(icons.find(QStringLiteral("none"), 1), nullptr);
    EXPECT_TRUE(icons.find(QStringLiteral("none"), 1)->isNull());
    time.runPending();
    EXPECT_EQ(loaded, 1);
}

struct AppIconViewTest : AppIconsTest {
    QColor middle(AppIconView& view)
    {
        view.resize(28, 28);
        QImage canvas(28, 28, QImage::Format_ARGB32);
        canvas.fill(Qt::white);
        view.render(&canvas, {}, {}, QWidget::DrawChildren);
        return canvas.pixelColor(14, 14);
    }
};

TEST_F(AppIconViewTest, ShowsTheIconOnceTheApplicationIsFound)
{
    fake.installedApplications.list.push_back({"org.red", "Red", "/red", file("red.png", Qt::red).toStdString()});
    AppIconView view("org.red", platform(), nullptr);
    EXPECT_EQ(middle(view), QColor(Qt::white));
    time.runPending();
    EXPECT_EQ(middle(view), QColor(Qt::red));
}

TEST_F(AppIconViewTest, ShowsTheSymbolOfAnApplicationThatIsNotThere)
{
    AppIconView view("org.gone", platform(), nullptr);
    QPalette palette;
    palette.setColor(QPalette::WindowText, Qt::blue);
    view.setPalette(palette);
    time.runPending();
    EXPECT_EQ(middle(view), QColor(Qt::blue));
    EXPECT_TRUE(view.icon().isNull());
}

TEST_F(AppIconViewTest, ShowsTheSymbolOfAnApplicationWithoutAnIcon)
{
    fake.installedApplications.install("org.bare", "Bare");
    AppIconView view("org.bare", platform(), nullptr);
    time.runPending();
    EXPECT_NE(middle(view), QColor(Qt::white));
}

TEST_F(AppIconViewTest, MayGoBeforeTheAnswer)
{
    auto view = std::make_unique<AppIconView>("org.red", platform(), nullptr);
    view.reset();
    time.runPending();
}

} // namespace

} // namespace orrinvale
