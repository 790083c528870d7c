// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/IllustrationView.h"

#include "tests/interface/InterfaceFixture.h"

namespace orrinvale
{

namespace
{

const auto asleep = QStringLiteral("illustration_asleep");
const auto awake = QStringLiteral("illustration_awake");
constexpr auto frameDuration = std::chrono::nanoseconds(83'333'333);

// What became of the films that were opened.
struct Projector {
    std::vector<QString> opened;
    int alive = 0;
    int frames = 0; // of the newest film
    int breaksAfter = 1000;
    bool isEmpty = false;
};

// A film whose frames have the number of their row as their red, and their own number as their green.
class FakeFilm final : public Film
{
public:
    explicit FakeFilm(Projector& projector) : m_projector(projector)
    {
        ++m_projector.alive;
        m_projector.frames = 0;
    }
    ~FakeFilm() override { --m_projector.alive; }
    QSize size() const override { return {600, 400}; }
    std::chrono::nanoseconds frameDuration() const override { return orrinvale::frameDuration; }
    QImage nextFrame(const QSize& size) override
    {
        if (m_projector.frames >= m_projector.breaksAfter)
            return {};
        ++m_projector.frames;
        QImage frame(size, QImage::Format_RGB32);
        for (int y = 0; y < size.height(); ++y)
            for (int x = 0; x < size.width(); ++x)
                frame.setPixelColor(x, y, QColor(std::min(y, 255), m_projector.frames, 200));
        return frame;
    }

private:
    Projector& m_projector;
};

struct IllustrationViewTest : InterfaceFixture {
    IllustrationView& view(IllustrationView::Motion motion = IllustrationView::Motion::film)
    {
        if (!m_view) {
            m_view = std::make_unique<IllustrationView>(
                time, motion,
                [this](const QString& name) -> std::unique_ptr<Film> {
                    projector.opened.push_back(name);
                    return projector.isEmpty ? nullptr : std::make_unique<FakeFilm>(projector);
                },
                nullptr);
            m_view->setAttribute(Qt::WA_TranslucentBackground);
            m_view->resize(300, 200);
        }
        return *m_view;
    }
    void show(IllustrationView::Motion motion = IllustrationView::Motion::film)
    {
        view(motion).show();
        time.runPending();
    }
    void showFrames(int count) { time.advance(frameDuration * count); }
    QColor at(int x, int y)
    {
        QImage image(view().size(), QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        view().render(&image, {}, {}, {});
        return image.pixelColor(x, y);
    }

    Projector projector;

private:
    std::unique_ptr<IllustrationView> m_view;
};

TEST(AspectFill, CoversTheBoundsAndKeepsTheShape)
{
    EXPECT_EQ(aspectFill({600, 400}, {300, 200}), QSize(300, 200));
    EXPECT_EQ(aspectFill({600, 400}, {300, 160}), QSize(300, 200));
    EXPECT_EQ(aspectFill({600, 400}, {300, 400}), QSize(600, 400));
    EXPECT_EQ(aspectFill({100, 100}, {300, 200}), QSize(300, 300));
}

TEST_F(IllustrationViewTest, BeginsWithTheMachineAsleepAndNotSetUp)
{
    EXPECT_EQ(view().filmName(), asleep);
    EXPECT_FALSE(view().isActive);
    EXPECT_FALSE(view().didSetup);
}

TEST_F(IllustrationViewTest, OpensNothingBeforeItCanBeSeen)
{
    view().play(awake);
    time.advance(1s);
    EXPECT_THAT(projector.opened, IsEmpty());
    EXPECT_EQ(time.timerCount(), 0u);
}

TEST_F(IllustrationViewTest, ShowsItsFirstFrameInATurnAfterTheWindow)
{
    view().show();
    EXPECT_THAT(projector.opened, IsEmpty());
    time.runPending();
    EXPECT_THAT(projector.opened, ElementsAre(asleep));
    EXPECT_TRUE(view().isPlaying());
    EXPECT_EQ(at(150, 100), QColor(100, 1, 200));
}

TEST_F(IllustrationViewTest, TheFilmIsOpenedOnceWhenItIsChosenBetweenShowAndTurn)
{
    view().show();
    view().play(awake);
    time.runPending();
    EXPECT_THAT(projector.opened, ElementsAre(awake));
}

TEST_F(IllustrationViewTest, ShowsAFrameForEachFrameDuration)
{
    show();
    showFrames(12);
    EXPECT_EQ(projector.frames, 13);
    EXPECT_EQ(at(150, 100).green(), 13);
}

TEST_F(IllustrationViewTest, PlayTakesTheOtherFilmFromItsBeginning)
{
    show();
    showFrames(5);
    view().play(awake);
    EXPECT_THAT(projector.opened, ElementsAre(asleep, awake));
    EXPECT_EQ(projector.alive, 1) << "the one before is gone";
    EXPECT_EQ(projector.frames, 1);
    EXPECT_EQ(view().filmName(), awake);
}

TEST_F(IllustrationViewTest, RestsWhileHiddenAndHoldsNoFilm)
{
    show();
    view().hide();
    EXPECT_FALSE(view().isPlaying());
    EXPECT_EQ(projector.alive, 0);
    EXPECT_EQ(time.timerCount(), 0u);
    EXPECT_TRUE(view().frame().isNull());
}

TEST_F(IllustrationViewTest, PlaysTheChosenFilmWhenShownAgain)
{
    show();
    view().hide();
    view().play(awake);
    EXPECT_THAT(projector.opened, ElementsAre(asleep));
    show();
    EXPECT_THAT(projector.opened, ElementsAre(asleep, awake));
}

TEST_F(IllustrationViewTest, HiddenBeforeItsFirstFrameItOpensNothing)
{
    view().show();
    view().hide();
    time.advance(1s);
    EXPECT_THAT(projector.opened, IsEmpty());
}

TEST_F(IllustrationViewTest, StopLeavesItEmpty)
{
    show();
    view().stop();
    showFrames(3);
    EXPECT_FALSE(view().isPlaying());
    EXPECT_EQ(projector.alive, 0);
    EXPECT_EQ(at(150, 100).alpha(), 0);
}

TEST_F(IllustrationViewTest, AMissingFilmLeavesItEmpty)
{
    projector.isEmpty = true;
    show();
    EXPECT_FALSE(view().isPlaying());
    EXPECT_EQ(at(150, 100).alpha(), 0);
    EXPECT_EQ(time.timerCount(), 0u);
}

TEST_F(IllustrationViewTest, AMissingFilmEndsTheOneBefore)
{
    show();
    projector.isEmpty = true;
    view().play(awake);
    EXPECT_FALSE(view().isPlaying());
    EXPECT_EQ(projector.alive, 0);
    EXPECT_EQ(at(150, 100).alpha(), 0);
    projector.isEmpty = false;
    view().play(awake);
    EXPECT_TRUE(view().isPlaying());
}

TEST_F(IllustrationViewTest, ABrokenFilmLeavesItEmpty)
{
    projector.breaksAfter = 0;
    show();
    EXPECT_FALSE(view().isPlaying());
    EXPECT_EQ(at(150, 100).alpha(), 0);
}

TEST_F(IllustrationViewTest, AFilmThatBreaksOnTheWayLeavesItEmpty)
{
    projector.breaksAfter = 3;
    show();
    showFrames(10);
    EXPECT_FALSE(view().isPlaying());
    EXPECT_EQ(projector.alive, 0);
    EXPECT_EQ(time.timerCount(), 0u);
    EXPECT_EQ(at(150, 100).alpha(), 0);
}

TEST_F(IllustrationViewTest, WhereMotionIsReducedItShowsAStillFrame)
{
    show(IllustrationView::Motion::still);
    EXPECT_FALSE(view().isPlaying());
    EXPECT_EQ(time.timerCount(), 0u);
    showFrames(10);
    EXPECT_EQ(at(150, 100), QColor(100, 1, 200));
    view().play(awake);
    EXPECT_THAT(projector.opened, ElementsAre(asleep, awake));
    EXPECT_EQ(at(150, 100), QColor(100, 1, 200));
}

TEST_F(IllustrationViewTest, ItsCornersHaveARadiusOf16)
{
    show();
    for (const auto& [x, y] : {std::pair(0, 0), {3, 3}, {299, 0}, {296, 3}, {0, 199}, {299, 199}})
        EXPECT_EQ(at(x, y).alpha(), 0) << x << ", " << y;
    for (const auto& [x, y] : {std::pair(6, 6), {17, 0}, {0, 17}, {293, 6}, {282, 199}})
        EXPECT_EQ(at(x, y).alpha(), 255) << x << ", " << y;
}

TEST_F(IllustrationViewTest, ALowerViewShowsTheMiddleOfTheFilm)
{
    view().resize(300, 160);
    show();
    EXPECT_EQ(at(150, 0).red(), 20);
    EXPECT_EQ(at(150, 159).red(), 179);
}

TEST_F(IllustrationViewTest, FillsItsBoundsWhenTheyChange)
{
    view().resize(150, 100);
    show(IllustrationView::Motion::still);
    view().resize(300, 200);
    EXPECT_NEAR(at(150, 100).red(), 50, 2) << "the middle row of the frame stays in the middle";
    EXPECT_NEAR(at(150, 190).red(), 95, 2);
    EXPECT_NEAR(at(150, 10).red(), 5, 2);
}

TEST_F(IllustrationViewTest, FillsItsNewBoundsInFullDetailFromTheNextFrameOn)
{
    show();
    view().resize(300, 160);
    showFrames(1);
    EXPECT_EQ(view().frame().size(), QSize(300, 200));
    EXPECT_EQ(at(150, 0).red(), 20);
}

TEST(Films, BothFilmsOpenAndRunForEver)
{
    for (const auto& name : {asleep, awake}) {
        const auto film = openFilm(name);
        ASSERT_TRUE(film) << name.toStdString();
        EXPECT_EQ(film->size(), QSize(600, 400));
        EXPECT_NEAR(double(film->frameDuration().count()), 1e9 / 12, 1e6);
        for (int i = 0; i < 73; ++i)
            ASSERT_EQ(film->nextFrame({30, 20}).size(), QSize(30, 20));
    }
}

// The scaler writes whole vectors of 64 bytes, past the end of a line that has no room for them.
TEST(Film, FramesHaveRoomForTheScalersVectors)
{
    const auto film = openFilm(awake);
    ASSERT_TRUE(film);
    for (const auto& size : {QSize(300, 200), QSize(450, 300), QSize(600, 400), QSize(901, 601)}) {
        const auto frame = film->nextFrame(size);
        EXPECT_EQ(frame.size(), size);
        EXPECT_EQ(frame.bytesPerLine() % 64, 0) << size.width();
    }
}

TEST(Films, ThereIsNoOther)
{
    EXPECT_FALSE(openFilm(QStringLiteral("illustration_dancing")));
    EXPECT_FALSE(openFilm(QString()));
}

} // namespace

} // namespace orrinvale
