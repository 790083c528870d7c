// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/StatusPopoverViewController.h"

#include "kit/SymbolBadge.h"
#include "kit/TextLabel.h"
#include "kit/Typography.h"
#include "orrinvale/MenuRowButton.h"
#include "orrinvale/ModeToggleControl.h"
#include "orrinvale/ReasonCardView.h"
#include "tests/interface/InterfaceFixture.h"

#include <QFontMetricsF>

namespace orrinvale
{

namespace
{

class StillFilm final : public Film
{
public:
    QSize size() const override { return {600, 400}; }
    std::chrono::nanoseconds frameDuration() const override { return 83ms; }
    QImage nextFrame(const QSize& size) override { return QImage(size, QImage::Format_RGB32); }
};

struct StatusPopoverViewControllerTest : InterfaceFixture {
    ~StatusPopoverViewControllerTest() override { QApplication::setFont(m_usualFont); }

    StatusPopoverViewController& open()
    {
        m_content = std::make_unique<StatusPopoverViewController>(engine(), settings(), platform(), [this](auto& name) {
            films.push_back(name);
            return std::make_unique<StillFilm>();
        });
        m_content->show();
        time.runPending();
        return *m_content;
    }
    StatusPopoverViewController& content() { return *m_content; }
    void close() { m_content.reset(); }
    void update(const WakeState& state, const WakeSignals& signals = {}, WakeMode mode = WakeMode::smart)
    {
        content().update(state, signals, mode);
    }
    void choose(AppTheme theme)
    {
        settings().appTheme.set(theme);
        settings().applyTheme();
    }
    WakeSignal signal(const std::string& detail)
    {
        return {.source = SignalSource::process,
                .detail = detail,
                .score = 3,
                .timestamp = time.now(),
                .appBundleID = {},
                .appName = {}};
    }
    QString title() { return content().titleLabel().text(); }
    QString subtitle() { return content().subtitleLabel().text(); }
    QColor dot() { return bytes(content().statusDot().ground()); }
    // The label of that text; a failure of the test when there is none.
    TextLabel& label(const QString& text)
    {
        for (auto* label : content().findChildren<TextLabel*>())
            if (label->text() == text)
                return *label;
        throw std::runtime_error("no label reads " + text.toStdString());
    }
    SymbolBadge& badge(const QString& symbol)
    {
        for (auto* badge : content().findChildren<SymbolBadge*>())
            if (badge->symbol() == symbol)
                return *badge;
        throw std::runtime_error("no badge shows " + symbol.toStdString());
    }
    QRect inContent(const QWidget& widget) { return {widget.mapTo(&content(), QPoint(0, 0)), widget.size()}; }
    std::array<MenuRowButton*, 3> rows()
    {
        return {&content().logButton(), &content().settingsButton(), &content().quitButton()};
    }

    std::vector<QString> films;

private:
    QFont m_usualFont = QApplication::font();
    std::unique_ptr<StatusPopoverViewController> m_content;
};

const auto green = tableColour(0.29, 0.55, 0.22);
const auto blossom = tableColour(0.87, 0.47, 0.60);
const auto awakeFilm = QStringLiteral("illustration_awake");
const auto asleepFilm = QStringLiteral("illustration_asleep");

TEST_F(StatusPopoverViewControllerTest, Awake)
{
    open();
    update(WakeState::awake("Downloading film.mkv.part"));
    EXPECT_EQ(title(), QStringLiteral("Your Mac is awake. 🌿"));
    EXPECT_EQ(subtitle(), QStringLiteral("Orrin is watching over your Mac."));
    EXPECT_EQ(dot(), green);
}

TEST_F(StatusPopoverViewControllerTest, Cooldown)
{
    open();
    for (const auto seconds : {30, 9, 1, 0}) {
        update(WakeState::cooldown(seconds));
        EXPECT_EQ(title(), QStringLiteral("Almost done…"));
        EXPECT_EQ(subtitle(), QStringLiteral("Going to sleep in %1s").arg(seconds));
        EXPECT_EQ(dot(), tableColour(0.85, 0.65, 0.10));
    }
}

TEST_F(StatusPopoverViewControllerTest, Idle)
{
    open();
    update(WakeState::idle());
    EXPECT_EQ(title(), QStringLiteral("Mac is about to sleep. ") + QChar(0x2615)) << "with no variation selector";
    EXPECT_EQ(subtitle(), QStringLiteral("No active protection."));
    EXPECT_EQ(dot(), tableColour(0.65, 0.63, 0.60));
}

TEST_F(StatusPopoverViewControllerTest, TheAccentIsBlossomInSakuraAndGreenInEveryOtherTheme)
{
    fake.appearance.systemIsDark = true;
    for (const auto theme : allAppThemes) {
        choose(theme);
        open();
        update(WakeState::awake("reason"));
        EXPECT_EQ(dot(), theme == AppTheme::sakura ? blossom : green) << rawValue(theme);
    }
}

TEST_F(StatusPopoverViewControllerTest, ShowsThePresentStateWhenItIsMade)
{
    engine().state.set(WakeState::awake("Manual mode"));
    engine().mode.set(WakeMode::manual);
    engine().activeSignals.set({signal("one")});
    open();
    EXPECT_EQ(title(), QStringLiteral("Your Mac is awake. 🌿"));
    EXPECT_EQ(content().modeToggle().selectedIndex(), 1);
    time.advance(380ms);
    EXPECT_EQ(content().reasonCard().titleLabel().text(), QStringLiteral("one"));
    EXPECT_EQ(content().illustrationView().filmName(), awakeFilm);
}

TEST_F(StatusPopoverViewControllerTest, TheToggleNamesTheModesInTheirOrder)
{
    open();
    QStringList texts;
    for (auto* button : content().modeToggle().buttons())
        texts += button->text();
    EXPECT_EQ(texts, QStringList({QStringLiteral("Smart"), QStringLiteral("Always Awake"), QStringLiteral("Off")}));
}

TEST_F(StatusPopoverViewControllerTest, TheToggleShowsTheMode)
{
    open();
    for (const auto& [mode, index] : {std::pair(WakeMode::off, 2), {WakeMode::manual, 1}, {WakeMode::smart, 0}}) {
        update(WakeState::idle(), {}, mode);
        EXPECT_EQ(content().modeToggle().selectedIndex(), index);
    }
}

TEST_F(StatusPopoverViewControllerTest, TheToggleReportsTheModeOfItsSegment)
{
    open();
    std::vector<WakeMode> modes;
    content().onModeChanged = [&](WakeMode mode) { modes.push_back(mode); };
    for (auto* button : content().modeToggle().buttons())
        QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_THAT(modes, ElementsAre(WakeMode::smart, WakeMode::manual, WakeMode::off));
}

TEST_F(StatusPopoverViewControllerTest, AnIndexOfNoModeIsIgnored)
{
    open();
    auto calls = 0;
    content().onModeChanged = [&](WakeMode) { ++calls; };
    for (const auto index : {3, -1, 100})
        content().modeToggle().onSelect(index);
    EXPECT_EQ(calls, 0);
}

TEST_F(StatusPopoverViewControllerTest, WithNobodyListeningClicksDoNothing)
{
    open();
    QTest::mouseClick(content().modeToggle().buttons()[1], Qt::LeftButton);
    for (auto* row : rows())
        QTest::mouseClick(row, Qt::LeftButton);
}

TEST_F(StatusPopoverViewControllerTest, RowsHaveTheirTextsAndSymbols)
{
    open();
    struct Row {
        MenuRowButton& button;
        const char* title;
        const char* subtitle;
        const char* symbol;
    };
    for (const auto& row :
         {Row{content().logButton(), "Activity Log", "See your orrinvale activities", "leaf.circle.fill"},
          Row{content().settingsButton(), "Settings", "Customize & behavior", "gearshape.circle.fill"},
          Row{content().quitButton(), "Quit", "Pause orrinvale", "power.circle.fill"}}) {
        EXPECT_EQ(row.button.titleLabel().text(), QLatin1String(row.title));
        EXPECT_EQ(row.button.subtitleLabel().text(), QLatin1String(row.subtitle));
        EXPECT_EQ(row.button.symbol(), QLatin1String(row.symbol));
        EXPECT_EQ(row.button.accessibleName(), QLatin1String(row.title));
    }
}

TEST_F(StatusPopoverViewControllerTest, EachRowCallsItsOwnCallback)
{
    open();
    std::vector<std::string> calls;
    content().onShowLog = [&] { calls.push_back("log"); };
    content().onShowSettings = [&] { calls.push_back("settings"); };
    content().onQuit = [&] { calls.push_back("quit"); };
    for (auto* row : rows())
        QTest::mouseClick(row, Qt::LeftButton);
    EXPECT_THAT(calls, ElementsAre("log", "settings", "quit"));
}

TEST_F(StatusPopoverViewControllerTest, HeaderAndTaglineReadAsTheyShould)
{
    open();
    EXPECT_EQ(inContent(label(QStringLiteral("orrinvale"))).topLeft(), QPoint(20, 20));
    EXPECT_EQ(inContent(badge(QStringLiteral("ellipsis.circle"))), QRect(300, 22, 20, 20));
    EXPECT_EQ(badge(QStringLiteral("ellipsis.circle")).focusPolicy(), Qt::NoFocus);
    auto& tagline = label(QStringLiteral("Your Mac stays awake — without interruptions."));
    EXPECT_EQ(inContent(tagline), QRect(20, 332, 300, 16));
    EXPECT_TRUE(tagline.alignment() & Qt::AlignHCenter);
}

TEST_F(StatusPopoverViewControllerTest, StandsAsItWasDrawn)
{
    open();
    EXPECT_EQ(content().size(), QSize(340, 700));
    EXPECT_EQ(inContent(content().titleLabel()), QRect(20, 64, 300, 24));
    EXPECT_EQ(inContent(content().statusDot()), QRect(20, 94, 8, 8));
    EXPECT_EQ(content().statusDot().cornerRadius(), 4);
    EXPECT_EQ(inContent(content().subtitleLabel()), QRect(36, 88, 284, 20));
    EXPECT_EQ(inContent(content().illustrationView()), QRect(20, 124, 300, 200));
    EXPECT_EQ(inContent(*content().modeToggle().buttons()[0]), QRect(22, 370, 96, 32));
    EXPECT_EQ(inContent(*content().modeToggle().buttons()[2]), QRect(222, 370, 96, 32));
    EXPECT_EQ(inContent(content().reasonCard()), QRect(20, 420, 300, 76));
    EXPECT_EQ(inContent(content().reasonCard().iconBadge()), QRect(34, 450, 32, 32));
    EXPECT_EQ(inContent(content().logButton()), QRect(20, 512, 300, 56));
    EXPECT_EQ(inContent(content().settingsButton()), QRect(20, 568, 300, 56));
    EXPECT_EQ(inContent(content().quitButton()), QRect(20, 624, 300, 56));
    EXPECT_EQ(inContent(content().quitButton().titleLabel()), QRect(78, 635, 190, 18));
}

TEST_F(StatusPopoverViewControllerTest, EveryStateFillsTheSameSpace)
{
    open();
    for (const auto& state : {WakeState::awake("reason"), WakeState::cooldown(30), WakeState::idle()}) {
        update(state, {signal("one"), signal("two")});
        time.advance(380ms);
        EXPECT_EQ(content().size(), QSize(340, 700));
    }
}

TEST_F(StatusPopoverViewControllerTest, TextsHaveTheirSizesAndWeights)
{
    open();
    struct Row {
        TextLabel& label;
        double pixels;
        QFont::Weight weight;
    };
    for (const auto& row :
         {Row{label(QStringLiteral("orrinvale")), 15, QFont::DemiBold},
          Row{content().titleLabel(), 18, QFont::DemiBold}, Row{content().subtitleLabel(), 13, QFont::Normal},
          Row{label(QStringLiteral("Your Mac stays awake — without interruptions.")), 12, QFont::Normal}}) {
        EXPECT_NEAR(pixelSizeOf(row.label.font()), row.pixels, 0.01) << row.label.text().toStdString();
        EXPECT_EQ(row.label.font().weight(), row.weight) << row.label.text().toStdString();
    }
}

TEST_F(StatusPopoverViewControllerTest, EveryTextFitsItsPlaceAtEveryTextScale)
{
    for (const auto pixels : {13, 15, 17, 20}) {
        auto font = QApplication::font();
        font.setPixelSize(pixels);
        QApplication::setFont(font);
        open();
        for (const auto& state : {WakeState::awake("reason"), WakeState::cooldown(30), WakeState::idle()}) {
            update(state, state.isIdle() ? WakeSignals() : WakeSignals{signal("one"), signal("two")});
            time.advance(380ms);
            for (auto* text : content().findChildren<TextLabel*>()) {
                SCOPED_TRACE(testing::Message() << pixels << ": " << text->text().toStdString());
                const auto line = QFontMetricsF(text->font()).height();
                const auto lines = text->heightFor(text->width(), 1);
                EXPECT_GE(text->height() + 4, lines * line) << "cut off below";
                EXPECT_TRUE(text->toolTip().isEmpty()) << "cut off beside";
                EXPECT_TRUE(content().rect().contains(inContent(*text)));
            }
        }
    }
}

TEST_F(StatusPopoverViewControllerTest, TheDotIsRoundAtEveryTextScale)
{
    for (const auto pixels : {13, 17, 20}) {
        auto font = QApplication::font();
        font.setPixelSize(pixels);
        QApplication::setFont(font);
        open();
        auto& dot = content().statusDot();
        EXPECT_EQ(dot.width(), dot.height());
        EXPECT_EQ(dot.cornerRadius(), dot.width() / 2.0);
    }
}

TEST_F(StatusPopoverViewControllerTest, NothingOverlapsInLargerText)
{
    auto font = QApplication::font();
    font.setPixelSize(20); // more than one and a half, which is the most
    QApplication::setFont(font);
    open();
    update(WakeState::awake("reason"), {signal("one"), signal("two")});
    time.advance(380ms);
    std::vector<QRect> rects{inContent(label(QStringLiteral("orrinvale"))),
                             inContent(content().titleLabel()),
                             inContent(content().subtitleLabel()),
                             inContent(content().illustrationView()),
                             inContent(label(QStringLiteral("Your Mac stays awake — without interruptions."))),
                             inContent(content().modeToggle()).adjusted(4, 4, -4, -4),
                             inContent(content().reasonCard())};
    for (auto* row : rows())
        rects.push_back(inContent(*row));
    for (std::size_t i = 1; i < rects.size(); ++i)
        EXPECT_GE(rects[i].top(), rects[i - 1].bottom() + 1) << i;
    EXPECT_EQ(content().illustrationView().height(), 160);
    EXPECT_GT(content().height(), 700) << "the rest is scrolled to";
    EXPECT_EQ(rects.back().bottom() + 1 + 20, content().height());
}

TEST_F(StatusPopoverViewControllerTest, TheIllustrationFollowsIdleAndNotIdleOnly)
{
    open();
    EXPECT_THAT(films, ElementsAre(asleepFilm));
    EXPECT_TRUE(content().illustrationView().didSetup);
    update(WakeState::awake("one"));
    update(WakeState::awake("two"));
    update(WakeState::awake("two"), {signal("one")});
    update(WakeState::cooldown(30));
    update(WakeState::cooldown(29));
    EXPECT_THAT(films, ElementsAre(asleepFilm, awakeFilm));
    EXPECT_TRUE(content().illustrationView().isActive);
    update(WakeState::idle());
    update(WakeState::idle());
    EXPECT_THAT(films, ElementsAre(asleepFilm, awakeFilm, asleepFilm));
    EXPECT_FALSE(content().illustrationView().isActive);
}

TEST_F(StatusPopoverViewControllerTest, TheIllustrationIsStillWhereMotionIsReduced)
{
    fake.appearance.motionIsReduced = true;
    open();
    EXPECT_THAT(films, ElementsAre(asleepFilm));
    EXPECT_FALSE(content().illustrationView().isPlaying());
}

TEST_F(StatusPopoverViewControllerTest, TheCardGetsTheAwakeStatesReason)
{
    open();
    update(WakeState::awake("reason"), {signal("one")});
    time.advance(380ms);
    update(WakeState::awake("Manual mode"));
    time.advance(380ms);
    EXPECT_EQ(content().reasonCard().titleLabel().text(), QStringLiteral("Manual mode"));
    EXPECT_EQ(content().reasonCard().timeLabel().text(), QStringLiteral("Currently active"));
}

TEST_F(StatusPopoverViewControllerTest, ACooldownGivesTheCardNoReason)
{
    open();
    update(WakeState::awake("reason"), {signal("one")});
    time.advance(380ms);
    update(WakeState::cooldown(30));
    time.advance(380ms);
    EXPECT_EQ(content().reasonCard().titleLabel().text(), QStringLiteral("No active reason"));
    EXPECT_EQ(content().reasonCard().categoryLabel().text(), QStringLiteral("Idle"));
}

TEST_F(StatusPopoverViewControllerTest, ChangesByTheEngineComeThroughItsOwnerAlone)
{
    open();
    engine().state.set(WakeState::awake("reason"));
    time.runPending();
    EXPECT_EQ(subtitle(), QStringLiteral("No active protection."));
}

TEST_F(StatusPopoverViewControllerTest, EveryPartTakesTheColoursOfTheTheme)
{
    fake.appearance.systemIsDark = true;
    struct Row {
        AppTheme theme;
        QColor secondary, surface, line, title, rowTitle, rowSubtitle, toggleText;
    };
    const auto lightSecondary = tableColour(0.45, 0.43, 0.40);
    const auto bright = tableColour(0.88, 0.88, 0.88);
    const Row dark{AppTheme::dark,
                   tableColour(0.55, 0.53, 0.50),
                   tableColour(0.16, 0.16, 0.14),
                   tableColour(0.25, 0.25, 0.23),
                   bright,
                   bright,
                   tableColour(0.50, 0.50, 0.50),
                   bright};
    auto system = dark;
    system.theme = AppTheme::system;
    const QColor ink(0x29, 0x26, 0x21);
    const QColor plum(0x52, 0x2e, 0x3d);
    const auto rose = tableColour(0.60, 0.42, 0.48);
    for (const auto& row : {Row{AppTheme::light, lightSecondary, tableColour(0.98, 0.969, 0.949),
                                tableColour(0.85, 0.83, 0.80), ink, ink, lightSecondary, lightSecondary},
                            dark, system,
                            Row{AppTheme::sakura, rose, tableColour(0.996, 0.973, 0.98), tableColour(0.93, 0.83, 0.87),
                                plum, plum, rose, lightSecondary}}) {
        SCOPED_TRACE(std::string(rawValue(row.theme)));
        choose(row.theme);
        open();
        EXPECT_EQ(bytes(content().titleLabel().colour()), row.title);
        EXPECT_EQ(bytes(content().subtitleLabel().colour()), row.secondary);
        EXPECT_EQ(bytes(content().reasonCard().titleLabel().colour()), row.title);
        EXPECT_EQ(bytes(content().reasonCard().headerLabel().colour()), row.secondary);
        for (auto* button : rows()) {
            EXPECT_EQ(bytes(button->colours().bgColor), row.surface);
            EXPECT_EQ(bytes(button->colours().separatorColor), row.line);
            EXPECT_EQ(bytes(button->titleLabel().colour()), row.rowTitle);
            EXPECT_EQ(bytes(button->subtitleLabel().colour()), row.rowSubtitle);
        }
        EXPECT_EQ(bytes(content().modeToggle().buttons()[2]->textColour()), row.toggleText);
        EXPECT_EQ(bytes(content().modeToggle().buttons()[0]->background()), green);
        EXPECT_EQ(picture(content()).pixelColor(170, 425), row.surface) << "the card's ground";
    }
}

TEST_F(StatusPopoverViewControllerTest, TheDesktopsSwitchToDarkIsFollowedWhileOpen)
{
    choose(AppTheme::system);
    open();
    update(WakeState::awake("reason"), {signal("one")});
    time.advance(380ms);
    fake.appearance.switchSystem(true);
    EXPECT_EQ(bytes(content().colours().background), tableColour(0.12, 0.12, 0.11));
    EXPECT_EQ(bytes(content().titleLabel().colour()), tableColour(0.88, 0.88, 0.88));
    EXPECT_EQ(bytes(content().quitButton().subtitleLabel().colour()), tableColour(0.50, 0.50, 0.50));
    EXPECT_EQ(bytes(content().reasonCard().timeLabel().colour()), tableColour(0.55, 0.53, 0.50));
    EXPECT_EQ(bytes(content().modeToggle().buttons()[1]->textColour()), tableColour(0.88, 0.88, 0.88));
    EXPECT_EQ(bytes(content().reasonCard().iconBadge().ground()), green);
}

TEST_F(StatusPopoverViewControllerTest, ASwitchOfThemeKeepsTheDotOfTheStateShown)
{
    choose(AppTheme::system);
    open();
    engine().state.set(WakeState::cooldown(3));
    update(engine().state.get());
    fake.appearance.switchSystem(true);
    EXPECT_EQ(dot(), tableColour(0.85, 0.65, 0.10));
}

TEST_F(StatusPopoverViewControllerTest, LeavesNothingBehindWhenItGoes)
{
    open();
    update(WakeState::awake("reason"), {signal("one"), signal("two")});
    EXPECT_GT(time.timerCount(), 0u);
    close();
    EXPECT_EQ(time.timerCount(), 0u);
    fake.appearance.switchSystem(true);
}

TEST_F(StatusPopoverViewControllerTest, TabGoesFromTheToggleThroughTheRows)
{
    open();
    content().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&content()));
    content().modeToggle().setFocus();
    std::vector<QWidget*> stops{QApplication::focusWidget()};
    for (int i = 0; i < 4; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        stops.push_back(QApplication::focusWidget());
    }
    EXPECT_THAT(stops,
                ElementsAre(content().modeToggle().buttons()[0], &content().logButton(), &content().settingsButton(),
                            &content().quitButton(), content().modeToggle().buttons()[0]));
}

} // namespace

} // namespace orrinvale
