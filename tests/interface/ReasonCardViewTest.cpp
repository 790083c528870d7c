// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/ReasonCardView.h"

#include "kit/SymbolBadge.h"
#include "kit/TextLabel.h"
#include "kit/Typography.h"
#include "tests/interface/InterfaceFixture.h"

namespace orrinvale
{

namespace
{

const auto ground = QColor(250, 247, 242);
const auto primary = QColor(10, 10, 10);
const auto secondary = QColor(100, 0, 0);
const auto accent = QColor(0, 150, 0);
const auto separator = QColor(0, 0, 200);

struct ReasonCardViewTest : InterfaceFixture {
    ReasonCardViewTest()
    {
        card->resize(300, 76);
        card->setVisible(true);
    }
    WakeSignal signal(const std::string& detail, std::int64_t score = 3, SignalSource source = SignalSource::process)
    {
        return {.source = source,
                .detail = detail,
                .score = score,
                .timestamp = time.now(),
                .appBundleID = {},
                .appName = {}};
    }
    void show(const WakeSignals& signals)
    {
        card->update(signals, std::nullopt, true);
        time.advance(380ms);
    }
    void showThree() { show({signal("one", 30), signal("two", 20), signal("three", 10)}); }
    QString title() { return card->titleLabel().text(); }
    // Everything that the card says, in one line.
    std::string said()
    {
        const auto text = [](TextLabel& label) { return label.text().toStdString(); };
        return text(card->titleLabel()) + " | " + text(card->categoryLabel()) + " | " + text(card->timeLabel()) +
               " | " + card->iconBadge().symbol().toStdString();
    }
    std::vector<double> opacities()
    {
        return {card->iconBadge().opacity(), card->titleLabel().opacity(), card->categoryLabel().opacity(),
                card->timeLabel().opacity()};
    }
    std::vector<std::string> details()
    {
        std::vector<std::string> texts;
        for (const auto& page : card->activeSignals())
            texts.push_back(page.detail);
        return texts;
    }

    std::unique_ptr<ReasonCardView> card =
        std::make_unique<ReasonCardView>(ReasonCardView::Colours{.cardBackground = ground,
                                                                 .textPrimary = primary,
                                                                 .textSecondary = secondary,
                                                                 .accent = accent,
                                                                 .separator = separator},
                                         time, time, nullptr);
};

TEST_F(ReasonCardViewTest, BeginsWithNoReasonAndNothingElse)
{
    EXPECT_EQ(card->headerLabel().text(), QStringLiteral("ACTIVE REASON"));
    EXPECT_EQ(said(), "No active reason |  |  | moon.zzz.fill");
    EXPECT_EQ(bytes(card->iconBadge().ground()), tableColour(0.55, 0.55, 0.55));
    EXPECT_THAT(details(), IsEmpty());
    EXPECT_EQ(card->rotationIndex(), 0);
    EXPECT_FALSE(card->isRotating());
    EXPECT_TRUE(card->pageDots().empty());
    EXPECT_EQ(time.timerCount(), 0u);
}

TEST_F(ReasonCardViewTest, ANewCardStaysAsItIsWhileThereWasNoSignalYet)
{
    card->update({}, "Manual mode", true);
    time.advance(10s);
    EXPECT_EQ(said(), "No active reason |  |  | moon.zzz.fill");
    card->update({}, std::nullopt, false);
    time.advance(10s);
    EXPECT_EQ(said(), "No active reason |  |  | moon.zzz.fill");
}

TEST_F(ReasonCardViewTest, ShowsASignalWithItsCategoryAndAge)
{
    auto download = signal("Downloading film.mkv.part", 3, SignalSource::download);
    download.timestamp -= 75s;
    show({download});
    EXPECT_EQ(said(), "Downloading film.mkv.part | Download | Detected 1m ago | arrow.down.circle.fill");
    EXPECT_EQ(card->iconBadge().ground(), accent);
}

TEST_F(ReasonCardViewTest, ShowsControlCharactersOfANameAsSigns)
{
    show({signal("Downloading a\x1b[31m\nb.part")});
    EXPECT_EQ(title(), QStringLiteral("Downloading a␛[31m␊b.part"));
    EXPECT_THAT(details(), ElementsAre("Downloading a\x1b[31m\nb.part"));
}

TEST_F(ReasonCardViewTest, WhenTheLastSignalGoesTheEnginesReasonIsShown)
{
    show({signal("one")});
    card->update({}, "Manual mode", true);
    time.advance(380ms);
    EXPECT_EQ(said(), "Manual mode | System | Currently active | bolt.fill");
    EXPECT_EQ(card->iconBadge().ground(), accent);
}

TEST_F(ReasonCardViewTest, WhenTheLastSignalGoesWithoutAReasonTheMachineCanSleep)
{
    show({signal("one")});
    card->update({}, std::nullopt, true); // a cooldown
    time.advance(380ms);
    EXPECT_EQ(said(), "No active reason | Idle | Your Mac can sleep normally | moon.zzz.fill");
    EXPECT_EQ(bytes(card->iconBadge().ground()), tableColour(0.55, 0.55, 0.55));
}

TEST_F(ReasonCardViewTest, AChangeOfReasonOrStateAloneChangesNothing)
{
    show({signal("one")});
    card->update({}, "Manual mode", true);
    time.advance(380ms);
    card->update({}, "Another reason", true);
    card->update({}, std::nullopt, false);
    time.advance(10s);
    EXPECT_EQ(title(), QStringLiteral("Manual mode"));
}

TEST_F(ReasonCardViewTest, NewContentFadesInOnceTheOldOneIsGone)
{
    card->update({signal("one")}, std::nullopt, true);
    time.advance(159ms);
    EXPECT_EQ(title(), QStringLiteral("No active reason"));
    EXPECT_THAT(opacities(), testing::Each(testing::Lt(1)));
    time.advance(1ms);
    EXPECT_EQ(title(), QStringLiteral("one"));
    EXPECT_THAT(opacities(), testing::Each(0));
    time.advance(219ms);
    EXPECT_THAT(opacities(), testing::Each(testing::Lt(1)));
    time.advance(1ms);
    EXPECT_THAT(opacities(), testing::Each(1));
    EXPECT_EQ(card->headerLabel().opacity(), 1) << "the header never fades";
}

TEST_F(ReasonCardViewTest, TheHeaderDoesNotFade)
{
    card->update({signal("one")}, std::nullopt, true);
    time.advance(160ms);
    EXPECT_EQ(card->headerLabel().opacity(), 1);
}

TEST_F(ReasonCardViewTest, TheSameDetailIsOnePage)
{
    show({signal("same", 1), signal("same", 9)});
    EXPECT_THAT(details(), ElementsAre("same"));
    EXPECT_TRUE(card->pageDots().empty());
    EXPECT_FALSE(card->isRotating());
    EXPECT_EQ(time.timerCount(), 0u);
}

TEST_F(ReasonCardViewTest, PagesComeByScoreAndThenInTheOrderGiven)
{
    show({signal("ten", 10), signal("fifty", 50), signal("another fifty", 50)});
    EXPECT_THAT(details(), ElementsAre("fifty", "another fifty", "ten"));
    EXPECT_EQ(title(), QStringLiteral("fifty"));
    EXPECT_EQ(card->pageDots().size(), 3u);
}

TEST_F(ReasonCardViewTest, TurnsThePageEveryThreeAndAHalfSeconds)
{
    EXPECT_EQ(ReasonCardView::rotationInterval, 3.5);
    showThree(); // 380 ms
    for (const auto* next : {"two", "three", "one", "two"}) {
        const auto before = card->rotationIndex();
        time.advance(3119ms);
        EXPECT_EQ(card->rotationIndex(), before);
        time.advance(1ms);
        EXPECT_EQ(card->rotationIndex(), (before + 1) % 3);
        time.advance(380ms);
        EXPECT_EQ(title(), QLatin1String(next));
    }
}

TEST_F(ReasonCardViewTest, APageTurnsWithAFade)
{
    showThree();
    time.advance(3120ms + 159ms);
    EXPECT_EQ(title(), QStringLiteral("one"));
    time.advance(1ms);
    EXPECT_EQ(title(), QStringLiteral("two"));
    EXPECT_THAT(opacities(), testing::Each(0));
}

TEST_F(ReasonCardViewTest, AgesAreCountedAnewWhenThePageTurns)
{
    showThree();
    time.advance(3s);
    EXPECT_EQ(card->timeLabel().text(), QStringLiteral("Detected 0s ago")) << "not every second";
    time.advance(500ms);
    EXPECT_EQ(card->timeLabel().text(), QStringLiteral("Detected 3s ago"));
}

TEST_F(ReasonCardViewTest, NewTimestampsAloneChangeNeitherContentNorPhase)
{
    showThree();
    time.advance(2s);
    card->update({signal("one", 30), signal("two", 20), signal("three", 10)}, "reason", false);
    EXPECT_THAT(opacities(), testing::Each(1));
    EXPECT_EQ(card->timeLabel().text(), QStringLiteral("Detected 0s ago"));
    time.advance(1120ms);
    EXPECT_EQ(card->rotationIndex(), 1) << "3.5 s after the rotation began";
    time.advance(380ms);
    EXPECT_EQ(card->timeLabel().text(), QStringLiteral("Detected 1s ago")) << "of the newer signal";
}

TEST_F(ReasonCardViewTest, TheSameDetailsKeepThePageThatIsShown)
{
    showThree();
    time.advance(3500ms);
    ASSERT_EQ(card->rotationIndex(), 1);
    card->update({signal("one", 30), signal("two", 20), signal("three", 10)}, std::nullopt, true);
    EXPECT_EQ(card->rotationIndex(), 1);
    EXPECT_EQ(title(), QStringLiteral("two"));
}

TEST_F(ReasonCardViewTest, OtherDetailsBeginAtTheFirstPageAndKeepTheTimer)
{
    showThree();
    time.advance(3500ms);
    card->update({signal("four", 40), signal("one", 30), signal("two", 20)}, std::nullopt, true);
    EXPECT_EQ(card->rotationIndex(), 0);
    time.advance(3119ms);
    EXPECT_EQ(card->rotationIndex(), 0);
    EXPECT_EQ(title(), QStringLiteral("four"));
    time.advance(1ms);
    EXPECT_EQ(card->rotationIndex(), 1) << "7 s after the rotation began";
}

TEST_F(ReasonCardViewTest, TheSameDetailsInAnotherOrderAreOthers)
{
    show({signal("one", 2), signal("two", 1)});
    show({signal("one", 1), signal("two", 2)});
    EXPECT_EQ(title(), QStringLiteral("two"));
}

TEST_F(ReasonCardViewTest, FromThreeToOneItStopsAtTheFirstPageWithoutDots)
{
    showThree();
    time.advance(7s);
    ASSERT_EQ(card->rotationIndex(), 2);
    show({signal("two", 20)});
    EXPECT_EQ(card->rotationIndex(), 0);
    EXPECT_FALSE(card->isRotating());
    EXPECT_TRUE(card->pageDots().empty());
    EXPECT_EQ(title(), QStringLiteral("two"));
    EXPECT_EQ(time.timerCount(), 0u);
    time.advance(10s);
    EXPECT_EQ(card->rotationIndex(), 0);
}

TEST_F(ReasonCardViewTest, NoTimerOutlivesTheCard)
{
    card->update({signal("one", 30), signal("two", 20)}, std::nullopt, true);
    time.advance(100ms);
    EXPECT_EQ(time.timerCount(), 2u) << "the fade and the rotation";
    card.reset();
    EXPECT_EQ(time.timerCount(), 0u);
    time.advance(10s);
}

TEST_F(ReasonCardViewTest, ATimestampInTheFutureReadsAsNow)
{
    auto ahead = signal("one");
    ahead.timestamp += 1h;
    show({ahead});
    EXPECT_EQ(card->timeLabel().text(), QStringLiteral("Detected 0s ago"));
}

TEST_F(ReasonCardViewTest, NamesFromOutsideAreNeverMarkup)
{
    const auto name = QStringLiteral("Downloading R&D <b>x</b>.part");
    show({signal(name.toStdString())});
    EXPECT_EQ(title(), name);
    EXPECT_EQ(card->titleLabel().textFormat(), Qt::PlainText);
}

TEST_F(ReasonCardViewTest, ALongReasonIsCutInItsMiddleAndWholeInTheTooltip)
{
    const std::string name = "Downloading a-file-whose-name-is-far-too-long-for-this-card.tar.gz.part";
    show({signal(name)});
    EXPECT_EQ(card->titleLabel().width(), 228);
    EXPECT_EQ(card->titleLabel().toolTip(), plainToolTip(QString::fromStdString(name)));
    EXPECT_EQ(card->titleLabel().accessibleName(), QString::fromStdString(name));
    EXPECT_EQ(card->heightFor(300), 76);
}

TEST_F(ReasonCardViewTest, StandsAsItWasDrawn)
{
    EXPECT_EQ(card->heightFor(300), 76);
    EXPECT_EQ(card->headerLabel().geometry().topLeft(), QPoint(14, 10));
    EXPECT_EQ(card->headerLabel().height(), 12);
    EXPECT_EQ(card->iconBadge().geometry(), QRect(14, 30, 32, 32));
    EXPECT_EQ(card->titleLabel().geometry(), QRect(58, 37, 228, 18)) << "alone, by the middle of the badge";
    show({signal("one")});
    EXPECT_EQ(card->heightFor(300), 76);
    EXPECT_EQ(card->titleLabel().geometry(), QRect(58, 29, 228, 18));
    EXPECT_EQ(card->categoryLabel().geometry().topLeft(), QPoint(58, 48));
    EXPECT_EQ(card->categoryLabel().height(), 14);
    EXPECT_EQ(card->timeLabel().geometry().top(), 48);
    EXPECT_EQ(card->timeLabel().geometry().right() + 1, 286);
    EXPECT_EQ(card->timeLabel().height(), 14);
    EXPECT_TRUE(card->timeLabel().alignment() & Qt::AlignRight);
}

TEST_F(ReasonCardViewTest, TextsHaveTheirSizesAndWeights)
{
    struct Row {
        TextLabel& label;
        double pixels;
        QFont::Weight weight;
    };
    for (const auto& row : {Row{card->headerLabel(), 9, QFont::DemiBold}, Row{card->titleLabel(), 13, QFont::Medium},
                            Row{card->categoryLabel(), 11, QFont::Medium}, Row{card->timeLabel(), 10, QFont::Normal}}) {
        EXPECT_NEAR(pixelSizeOf(row.label.font()), row.pixels, 0.01);
        EXPECT_EQ(row.label.font().weight(), row.weight);
    }
    EXPECT_NEAR(card->headerLabel().font().letterSpacing(), 0.6, 0.02);
}

TEST_F(ReasonCardViewTest, TextsHaveTheirColours)
{
    EXPECT_EQ(card->titleLabel().colour(), primary);
    for (auto* label : {&card->headerLabel(), &card->categoryLabel(), &card->timeLabel()})
        EXPECT_EQ(label->colour(), secondary);
}

TEST_F(ReasonCardViewTest, OtherColoursAreTakenAtOnceAndKeepTheKindOfBadge)
{
    const ReasonCardView::Colours others{.cardBackground = Qt::black,
                                         .textPrimary = Qt::white,
                                         .textSecondary = Qt::gray,
                                         .accent = Qt::magenta,
                                         .separator = Qt::yellow};
    card->setColours(others);
    EXPECT_EQ(bytes(card->iconBadge().ground()), tableColour(0.55, 0.55, 0.55));
    EXPECT_EQ(card->titleLabel().colour(), QColor(Qt::white));
    show({signal("one")});
    EXPECT_EQ(card->iconBadge().ground(), QColor(Qt::magenta));
    EXPECT_EQ(picture(*card).pixelColor(150, 5), QColor(Qt::black));
}

TEST_F(ReasonCardViewTest, TheBadgeHasARadiusOfEightAndASymbolOf16)
{
    EXPECT_EQ(card->iconBadge().cornerRadius(), 8);
    EXPECT_EQ(card->iconBadge().symbolPoints(), 16);
}

TEST_F(ReasonCardViewTest, TheCardHasARadiusOf12AndAHairline)
{
    const auto image = picture(*card);
    EXPECT_EQ(image.pixelColor(150, 1), ground);
    EXPECT_EQ(image.pixelColor(150, 0), separator);
    EXPECT_EQ(image.pixelColor(0, 38), separator);
    EXPECT_EQ(image.pixelColor(150, 75), separator);
    EXPECT_NE(image.pixelColor(0, 0), separator);
    EXPECT_NE(image.pixelColor(2, 2), ground);
    EXPECT_EQ(image.pixelColor(5, 5), ground);
}

TEST_F(ReasonCardViewTest, DotsAreFiveWideFourApartAndEndAtTheRightEdge)
{
    showThree();
    EXPECT_EQ(card->pageDots(), (std::vector{QRectF(263, 14, 5, 5), QRectF(272, 14, 5, 5), QRectF(281, 14, 5, 5)}));
    EXPECT_FALSE(card->headerLabel().geometry().intersects(QRect(263, 14, 23, 5)));
}

TEST_F(ReasonCardViewTest, ManyDotsTakeLinesOfTheirOwnAndRunThroughNothing)
{
    for (const auto scale : {1.0, 1.5})
        for (const auto count : {2, 19, 20, 21, 22, 40, 41, 200}) {
            SCOPED_TRACE(testing::Message() << count << " at " << scale);
            WakeSignals many;
            for (int i = 0; i < count; ++i)
                many.push_back(signal(std::to_string(i)));
            card->setScale(scale);
            show(many);
            card->resize(300, card->heightFor(300));
            const auto dots = card->pageDots();
            ASSERT_EQ(dots.size(), static_cast<std::size_t>(count));
            for (std::size_t i = 0; i < dots.size(); ++i) {
                const auto dot = dots[i].toRect();
                EXPECT_TRUE(card->rect().adjusted(14, 10, -14, -14).contains(dot)) << i;
                EXPECT_GE(dot.left(), card->headerLabel().geometry().right() + 6) << i;
                for (const auto* other : std::initializer_list<QWidget*>{&card->iconBadge(), &card->titleLabel(),
                                                                         &card->categoryLabel(), &card->timeLabel()})
                    EXPECT_FALSE(dot.intersects(other->geometry())) << i;
                const auto isFirstInLine = i == 0 || dots[i].top() > dots[i - 1].top();
                EXPECT_EQ(dots[i].left(), isFirstInLine ? dots[0].left() : dots[i - 1].right() + 4) << i;
            }
            const auto last = std::max_element(dots.begin(), dots.end(), [](const auto& one, const auto& other) {
                return one.right() < other.right();
            });
            EXPECT_EQ(last->right(), 286);
        }
}

TEST_F(ReasonCardViewTest, DotsStayByTheMiddleOfTheHeaderInLargerText)
{
    showThree();
    for (const auto scale : {1.0, 1.25, 1.5}) {
        card->setScale(scale);
        const auto header = QRectF(card->headerLabel().geometry());
        for (const auto& dot : card->pageDots()) {
            EXPECT_NEAR(dot.center().y(), header.center().y(), 0.5) << scale;
            EXPECT_EQ(dot.top(), std::round(dot.top())) << "on whole pixels";
        }
    }
}

TEST_F(ReasonCardViewTest, TheDotOfThePageIsLit)
{
    showThree();
    const auto other = blended(ground, withAlpha(secondary, 0.35));
    const auto dotColours = [this] {
        const auto image = picture(*card);
        return std::vector{image.pixelColor(265, 16), image.pixelColor(274, 16), image.pixelColor(283, 16)};
    };
    const auto isNear = [](const QColor& one, const QColor& two) {
        return std::abs(one.red() - two.red()) <= 2 && std::abs(one.green() - two.green()) <= 2;
    };
    for (int page = 0; page < 3; ++page) {
        const auto colours = dotColours();
        for (int i = 0; i < 3; ++i)
            EXPECT_TRUE(isNear(colours[i], i == page ? accent : other)) << testing::PrintToString(colours[i]);
        time.advance(3500ms);
    }
}

TEST_F(ReasonCardViewTest, TheTimeTakesALineOfItsOwnWhereItDoesNotFit)
{
    show({signal("one")});
    EXPECT_GT(card->heightFor(180), 76);
    card->resize(180, card->heightFor(180));
    EXPECT_EQ(card->timeLabel().geometry().top(), card->categoryLabel().geometry().bottom() + 1);
    EXPECT_EQ(card->timeLabel().x(), 58);
    EXPECT_TRUE(card->timeLabel().alignment() & Qt::AlignLeft);
    EXPECT_GE(card->timeLabel().width(), card->timeLabel().naturalWidth()) << "nothing is cut";
}

TEST_F(ReasonCardViewTest, LargerTextOverlapsNothing)
{
    show({signal("A reason of some length", 3, SignalSource::download)});
    card->update({}, std::nullopt, false);
    time.advance(380ms); // the longest time text
    for (const auto scale : {1.0, 1.25, 1.5}) {
        card->setScale(scale);
        const auto height = card->heightFor(300);
        card->resize(300, height);
        const std::vector<QRect> rects{card->headerLabel().geometry(), card->iconBadge().geometry(),
                                       card->titleLabel().geometry(), card->categoryLabel().geometry(),
                                       card->timeLabel().geometry()};
        for (std::size_t i = 0; i < rects.size(); ++i) {
            EXPECT_LE(rects[i].bottom() + 1, height - 10) << scale;
            EXPECT_LE(rects[i].right() + 1, 286) << scale;
            for (std::size_t j = i + 1; j < rects.size(); ++j)
                EXPECT_FALSE(rects[i].intersects(rects[j])) << scale << ": " << i << " and " << j;
        }
    }
}

TEST_F(ReasonCardViewTest, TellsWhenItsHeightMayHaveChanged)
{
    auto calls = 0;
    card->onHeightChange = [&] { ++calls; };
    card->update({signal("one")}, std::nullopt, true);
    EXPECT_EQ(calls, 0);
    time.advance(160ms);
    EXPECT_EQ(calls, 1);
}

TEST_F(ReasonCardViewTest, IsForDisplayOnly)
{
    for (auto* label : {&card->headerLabel(), &card->titleLabel(), &card->categoryLabel(), &card->timeLabel()}) {
        EXPECT_EQ(label->focusPolicy(), Qt::NoFocus);
        EXPECT_FALSE(label->textInteractionFlags() & Qt::TextEditable);
    }
}

} // namespace

} // namespace orrinvale
