// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/SettingsView.h"

#include "kit/ContinuousSlider.h"
#include "kit/FocusRing.h"
#include "kit/OverlayScrollArea.h"
#include "kit/WindowButton.h"
#include "orrinvale/ButtonRow.h"
#include "orrinvale/RowText.h"
#include "orrinvale/SensitivityRow.h"
#include "orrinvale/SettingsSection.h"
#include "orrinvale/ThemeTile.h"
#include "orrinvale/ThemeTiles.h"
#include "orrinvale/ThresholdsRow.h"
#include "orrinvale/ToggleRow.h"
#include "orrinvale/WatchListRow.h"
#include "orrinvale/WatchListView.h"
#include "platform/fake/FakeFilePanels.h"
#include "tests/interface/WindowFixture.h"

#include <QScrollBar>

namespace orrinvale
{

namespace
{

struct SettingsViewTest : InterfaceFixture {
    SettingsView& view()
    {
        if (!made) {
            made = std::make_unique<SettingsView>(
                settings(), platform(),
                SettingsView::Surroundings{panels, [](const std::string&) { return new QWidget; },
                                           [this] { ++feedbacks; }});
            made->applyTheme(Look::light);
            made->resize(540, 560);
            made->show();
            settle();
        }
        return *made;
    }
    void activate()
    {
        view().activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&view()));
    }
    // What the settings keep of a value, under the whole key.
    DefaultsValue stored(const std::string& name) const
    {
        const auto found = fake.userDefaults.values.find("orrinvale." + name);
        return found == fake.userDefaults.values.end() ? DefaultsValue(std::string("nothing is stored"))
                                                       : found->second;
    }
    std::vector<CustomProcess> storedProcesses() const
    {
        const auto value = stored("customProcesses");
        const auto* data = std::get_if<DefaultsData>(&value);
        return data ? decodeCustomProcesses(data->bytes).value() : std::vector<CustomProcess>{};
    }
    static QString subtitle(const ButtonRow& row) { return row.text().subtitleLabel().text(); }
    QString thresholds() { return view().thresholds().textLabel().text(); }
    static void press(WindowButton& button) { QTest::mouseClick(&button, Qt::LeftButton, {}, middleOf(button)); }
    void watch(std::initializer_list<const char*> labels)
    {
        std::vector<CustomProcess> processes;
        for (const auto* label : labels)
            processes.push_back({UUID::random(), "org.example.Same", label, 3});
        settings().customProcesses.set(processes);
        settle();
    }
    // In the column that scrolls.
    std::vector<int> sectionTops()
    {
        std::vector<int> tops;
        for (const auto* section : view().sections())
            tops.push_back(section->y());
        return tops;
    }
    int columnHeight() { return view().scrollArea().widget()->height(); }

    FakeFilePanels panels;
    int feedbacks = 0;
    std::unique_ptr<SettingsView> made;
};

TEST_F(SettingsViewTest, TheSectionsHaveTheirHeadsAndCaptions)
{
    const std::pair<const char*, const char*> expected[] = {
        {"APPEARANCE", ""},
        {"GENERAL", ""},
        {"NOTIFICATIONS", ""},
        {"BATTERY & SAFETY", "Avoids the classic keep-awake problem: a Mac left running unattended in a bag, draining "
                             "its battery or overheating."},
        {"SIGNAL SOURCES", "Turn off a detection method if it triggers too often for your workflow."},
        {"CPU SENSITIVITY", "Sets how much CPU load is needed for orrinvale to keep the Mac awake."},
        {"CUSTOM WATCH LIST", "Add apps – orrinvale keeps the Mac awake while these apps are running."},
        {"FEEDBACK", "orrinvale is free — your feedback shapes what gets built next."},
    };
    ASSERT_EQ(view().sections().size(), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        const auto& section = *view().sections()[i];
        EXPECT_EQ(section.headLabel().text(), QString::fromUtf8(expected[i].first));
        EXPECT_EQ(section.captionLabel().text(), QString::fromUtf8(expected[i].second));
        EXPECT_EQ(section.hasCaption(), i >= 3);
    }
}

TEST_F(SettingsViewTest, TheRowsHaveTheirTextsAndSections)
{
    struct Row {
        const QWidget* row;
        const RowText* text;
        std::size_t section;
        const char* title;
        const char* subtitle;
    };
    auto& v = view();
    const Row rows[] = {
        {&v.themeTiles(), &v.themeTiles().text(), 0, "Theme", "Set the app's appearance"},
        {&v.startAtLogin(), &v.startAtLogin().text(), 1, "Start at Login", "Automatically start orrinvale at login"},
        {&v.notifications(), &v.notifications().text(), 2, "Notifications", "Show alerts on status changes"},
        {&v.pauseOnLowBattery(), &v.pauseOnLowBattery().text(), 3, "Pause on Low Battery",
         "Stops keeping the Mac awake below 20% while unplugged"},
        {&v.onlyWhenPluggedIn(), &v.onlyWhenPluggedIn().text(), 3, "Only While Plugged In",
         "Never keeps the Mac awake on battery power"},
        {&v.cpuDetection(), &v.cpuDetection().text(), 4, "CPU Load Detection",
         "Wakes for sustained high CPU usage (builds, renders, exports)"},
        {&v.networkDetection(), &v.networkDetection().text(), 4, "Network Activity Detection",
         "Wakes for sustained high-throughput uploads/downloads"},
        {&v.downloadsFolder(), &v.downloadsFolder().text(), 4, "Downloads Folder", "~/Downloads"},
        {&v.feedback(), &v.feedback().text(), 7, "Send Feedback", "Share thoughts, bugs, or feature ideas"},
    };
    const QWidget* previous = nullptr;
    for (const auto& each : rows) {
        EXPECT_EQ(each.text->titleLabel().text(), QString::fromUtf8(each.title));
        EXPECT_EQ(each.text->subtitleLabel().text(), QString::fromUtf8(each.subtitle));
        EXPECT_EQ(each.row->parentWidget(), v.sections()[each.section]) << each.title;
        const auto isSameSection = previous && previous->parentWidget() == each.row->parentWidget();
        EXPECT_TRUE(!isSameSection || each.row->y() > previous->y()) << each.title;
        previous = each.row;
    }
    EXPECT_EQ(v.downloadsFolder().button().accessibleName(), QStringLiteral("Choose"));
    EXPECT_EQ(v.feedback().button().accessibleName(), QStringLiteral("Open"));
    EXPECT_EQ(v.sensitivity().parentWidget(), v.sections()[5]);
    EXPECT_EQ(v.watchList().parentWidget(), v.sections()[6]);
}

TEST_F(SettingsViewTest, TheHeaderFollowsTheTheme)
{
    EXPECT_EQ(view().headerLabel().text(), QStringLiteral("⚙️  Settings"));
    for (const auto look : allLooks) {
        view().applyTheme(look);
        EXPECT_EQ(view().headerLabel().text(),
                  look == Look::sakura ? QStringLiteral("🌸  Settings") : QStringLiteral("⚙️  Settings"));
        expectText(view().headerLabel(), {14, QFont::DemiBold}, WindowPalette::of(look).primaryText);
    }
}

TEST_F(SettingsViewTest, EverythingTakesTheThemesColours)
{
    watch({"One"});
    for (const auto look : allLooks) {
        view().applyTheme(look);
        const auto& colours = WindowPalette::of(look);
        for (const auto* section : view().sections())
            EXPECT_EQ(bytes(section->headLabel().colour()), bytes(colours.quietText));
        EXPECT_EQ(bytes(view().startAtLogin().text().titleLabel().colour()), bytes(colours.primaryText));
        EXPECT_EQ(bytes(view().thresholds().textLabel().colour()), bytes(colours.primaryText));
        EXPECT_EQ(bytes(view().watchList().rows()[0]->bundleIDLabel().colour()), bytes(colours.quietText));
        EXPECT_EQ(bytes(view().feedback().button().ground()), bytes(colours.button));
        const auto image = picture(view());
        EXPECT_TRUE(isNearly(image.pixelColor(5, 5), colours.window));
        EXPECT_TRUE(isNearly(image.pixelColor(270, 90), colours.card));
        EXPECT_TRUE(isNearly(image.pixelColor(270, 88), colours.border));
    }
}

TEST_F(SettingsViewTest, TheColumnStandsAsItWasDrawn)
{
    EXPECT_EQ(view().headerLabel().geometry().topLeft(), QPoint(20, 20));
    EXPECT_EQ(view().headerLabel().height(), 24);
    EXPECT_EQ(columnHeight(), 1405);
    watch({"One", "Two"});
    EXPECT_THAT(sectionTops(), ElementsAre(64, 276, 382, 488, 683, 920, 1090, 1303));
    EXPECT_EQ(columnHeight(), 1426);
    for (const auto* section : view().sections()) {
        EXPECT_EQ(section->x(), 20);
        EXPECT_EQ(section->width(), 500);
    }
    EXPECT_EQ(view().sections()[0]->height() - 24, 164);
}

TEST_F(SettingsViewTest, TheCardsWidenWithTheWindowAndTheSwitchesStayAtTheRight)
{
    view().resize(900, 700);
    for (const auto* section : view().sections())
        EXPECT_EQ(section->width(), 860);
    EXPECT_EQ(view().startAtLogin().switchRect().right() + 1, 858 - 16);
    view().resize(460, 400);
    for (const auto* section : view().sections())
        EXPECT_EQ(section->width(), 420);
    EXPECT_EQ(view().startAtLogin().switchRect().right() + 1, 418 - 16);
}

TEST_F(SettingsViewTest, ShowingItWritesNothing)
{
    fake.userDefaults.values["orrinvale.cpuSensitivity"] = 1.7;
    fake.userDefaults.values["orrinvale.lowBatteryThreshold"] = std::int64_t{-5};
    settings();
    const auto before = fake.userDefaults.values;
    const auto writes = fake.userDefaults.writes;
    view();
    watch({}); // one write of the test's own
    for (const auto look : allLooks)
        view().applyTheme(look);
    view().resize(460, 400);
    picture(view());
    settle();
    made.reset();
    settle();
    EXPECT_EQ(fake.userDefaults.writes, writes + 1);
    EXPECT_EQ(std::get<double>(stored("cpuSensitivity")), 1.7);
    EXPECT_EQ(settings().cpuSensitivity.get(), 1.7);
    EXPECT_THAT(fake.loginItem.calls, IsEmpty());
    for (const auto& [key, value] : before)
        EXPECT_EQ(fake.userDefaults.values[key], value) << key;
}

TEST_F(SettingsViewTest, ASensitivityBeyondTheEndIsShownAtTheEnd)
{
    fake.userDefaults.values["orrinvale.cpuSensitivity"] = 1.7;
    auto& slider = view().sensitivity().slider();
    EXPECT_EQ(slider.value(), 1.7);
    EXPECT_EQ(slider.knobRect().right(), shownRect(slider).right() + 1);
    EXPECT_EQ(thresholds(), QStringLiteral("Load ≥ 15 % · Core ≥ 25 %"));
}

struct Toggle {
    const char* name;
    const char* key;
    ToggleRow& (SettingsView::*row)() const;
    Published<bool> AppSettings::*setting;
    bool byDefault;
};
void PrintTo(const Toggle& toggle, std::ostream* out)
{
    *out << toggle.name;
}
const Toggle toggles[] = {
    {"StartAtLogin", "launchAtLogin", &SettingsView::startAtLogin, &AppSettings::launchAtLogin, false},
    {"Notifications", "notificationsEnabled", &SettingsView::notifications, &AppSettings::notificationsEnabled, true},
    {"PauseOnLowBattery", "pauseOnLowBattery", &SettingsView::pauseOnLowBattery, &AppSettings::pauseOnLowBattery, true},
    {"OnlyWhenPluggedIn", "onlyWhenPluggedIn", &SettingsView::onlyWhenPluggedIn, &AppSettings::onlyWhenPluggedIn,
     false},
    {"CPUDetection", "cpuSignalEnabled", &SettingsView::cpuDetection, &AppSettings::cpuSignalEnabled, true},
    {"NetworkDetection", "networkSignalEnabled", &SettingsView::networkDetection, &AppSettings::networkSignalEnabled,
     true},
};

struct SettingsToggleTest : SettingsViewTest, testing::WithParamInterface<Toggle> {
    ToggleRow& row() { return (view().*GetParam().row)(); }
    Published<bool>& setting() { return settings().*GetParam().setting; }
};

TEST_P(SettingsToggleTest, ShowsItsSetting)
{
    EXPECT_EQ(row().isOn(), GetParam().byDefault);
    made.reset();
    setting().set(!GetParam().byDefault);
    EXPECT_EQ(row().isOn(), !GetParam().byDefault);
}

TEST_P(SettingsToggleTest, WritesItsSettingAndNoOtherAtOnce)
{
    row();
    const auto before = fake.userDefaults.values;
    QTest::mouseClick(&row(), Qt::LeftButton, {}, {10, 10});
    EXPECT_EQ(setting().get(), !GetParam().byDefault);
    EXPECT_EQ(std::get<bool>(stored(GetParam().key)), !GetParam().byDefault);
    auto expected = before;
    expected["orrinvale." + std::string(GetParam().key)] = !GetParam().byDefault;
    EXPECT_EQ(fake.userDefaults.values, expected);
    settle();
    EXPECT_EQ(row().isOn(), !GetParam().byDefault);
    QTest::keyClick(&row(), Qt::Key_Space);
    EXPECT_EQ(std::get<bool>(stored(GetParam().key)), GetParam().byDefault);
}

TEST_P(SettingsToggleTest, FollowsWhatIsChangedElsewhere)
{
    row();
    const auto writes = fake.userDefaults.writes;
    setting().set(!GetParam().byDefault);
    settle();
    EXPECT_EQ(row().isOn(), !GetParam().byDefault);
    setting().set(GetParam().byDefault);
    settle();
    EXPECT_EQ(row().isOn(), GetParam().byDefault);
    EXPECT_EQ(fake.userDefaults.writes, writes + 2);
}

INSTANTIATE_TEST_SUITE_P(Toggles, SettingsToggleTest, testing::ValuesIn(toggles),
                         [](const auto& each) { return each.param.name; });

TEST_F(SettingsViewTest, StartAtLoginRegistersAtOnceAndStaysOnWhenRefused)
{
    fake.loginItem.refusal = "not allowed";
    QTest::mouseClick(&view().startAtLogin(), Qt::LeftButton, {}, {10, 10});
    EXPECT_THAT(fake.loginItem.calls, ElementsAre(true));
    settle();
    EXPECT_TRUE(view().startAtLogin().isOn());
    EXPECT_TRUE(settings().launchAtLogin.get());
}

TEST_F(SettingsViewTest, SwitchesStandStillWhereMotionIsReduced)
{
    fake.appearance.motionIsReduced = true;
    auto& row = view().startAtLogin();
    QTest::mouseClick(&row, Qt::LeftButton, {}, {10, 10});
    const auto image = picture(row);
    EXPECT_TRUE(isNearly(image.pixelColor(row.switchRect().topLeft() + QPoint(30, 10)), Qt::white));
}

TEST_F(SettingsViewTest, TheLowBatterySubtitleFollowsTheThreshold)
{
    auto& row = view().pauseOnLowBattery();
    settings().lowBatteryThreshold.set(35);
    settle();
    EXPECT_EQ(row.text().subtitleLabel().text(),
              QStringLiteral("Stops keeping the Mac awake below 35% while unplugged"));
    EXPECT_EQ(row.accessibleDescription(), row.text().subtitleLabel().text());
}

TEST_F(SettingsViewTest, ATileSetsTheThemeAndAppliesItToTheApplication)
{
    const auto click = [this](std::size_t i) {
        auto& tile = *view().themeTiles().tiles()[i];
        QTest::mouseClick(&tile, Qt::LeftButton, {}, middleOf(tile));
    };
    click(3);
    EXPECT_EQ(settings().appTheme.get(), AppTheme::sakura);
    EXPECT_EQ(std::get<std::string>(stored("appTheme")), "Sakura");
    EXPECT_EQ(fake.appearance.applied.back(), AppearanceChoice::light);
    click(1);
    EXPECT_EQ(std::get<std::string>(stored("appTheme")), "Dark");
    EXPECT_EQ(fake.appearance.applied.back(), AppearanceChoice::dark);
    click(2);
    EXPECT_EQ(std::get<std::string>(stored("appTheme")), "System");
    EXPECT_EQ(fake.appearance.applied.back(), AppearanceChoice::followSystem);
    click(0);
    EXPECT_EQ(std::get<std::string>(stored("appTheme")), "Light");
    EXPECT_EQ(fake.appearance.applied.back(), AppearanceChoice::light);
}

TEST_F(SettingsViewTest, TheTilesFollowATheme)
{
    EXPECT_TRUE(view().themeTiles().tiles()[0]->isChosen());
    settings().appTheme.set(AppTheme::sakura);
    settle();
    EXPECT_TRUE(view().themeTiles().tiles()[3]->isChosen());
    EXPECT_FALSE(view().themeTiles().tiles()[0]->isChosen());
}

TEST_F(SettingsViewTest, TheThresholdsAreThoseOfTheSensitivity)
{
    const std::pair<double, const char*> expected[] = {{0.5, "Load ≥ 40 % · Core ≥ 50 %"},
                                                       {0, "Load ≥ 70 % · Core ≥ 85 %"},
                                                       {1, "Load ≥ 15 % · Core ≥ 25 %"},
                                                       {0.25, "Load ≥ 55 % · Core ≥ 68 %"}};
    EXPECT_EQ(view().thresholds().headLabel().text(), QStringLiteral("Thresholds:"));
    EXPECT_EQ(thresholds(), QString::fromUtf8(expected[0].second));
    for (const auto& [sensitivity, text] : expected) {
        settings().cpuSensitivity.set(sensitivity);
        settle();
        EXPECT_EQ(thresholds(), QString::fromUtf8(text));
        EXPECT_EQ(view().sensitivity().slider().value(), sensitivity);
        EXPECT_EQ(view().sensitivity().slider().accessibleDescription(), QString::fromUtf8(text));
    }
}

TEST_F(SettingsViewTest, TheThresholdsFollowTheDraggedKnobLive)
{
    auto& slider = view().sensitivity().slider();
    const auto knob = slider.knobRect().center().toPoint();
    QTest::mousePress(&slider, Qt::LeftButton, {}, knob);
    movePointer(slider, {-100, knob.y()}, Qt::LeftButton);
    EXPECT_EQ(thresholds(), QStringLiteral("Load ≥ 70 % · Core ≥ 85 %"));
    EXPECT_EQ(std::get<double>(stored("cpuSensitivity")), 0);
    movePointer(slider, {2000, knob.y()}, Qt::LeftButton);
    EXPECT_EQ(thresholds(), QStringLiteral("Load ≥ 15 % · Core ≥ 25 %"));
    EXPECT_EQ(std::get<double>(stored("cpuSensitivity")), 1);
    settle(); // what was announced on the way arrives late and changes nothing
    EXPECT_EQ(slider.value(), 1);
    movePointer(slider, {knob.x(), knob.y()}, Qt::LeftButton);
    EXPECT_EQ(thresholds(), QStringLiteral("Load ≥ 40 % · Core ≥ 50 %"));
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, knob);
    settle();
    EXPECT_EQ(settings().cpuSensitivity.get(), slider.value());
}

TEST_F(SettingsViewTest, TheKeyboardMovesTheSensitivity)
{
    QTest::keyClick(&view().sensitivity().slider(), Qt::Key_Home);
    EXPECT_EQ(std::get<double>(stored("cpuSensitivity")), 0);
    EXPECT_EQ(thresholds(), QStringLiteral("Load ≥ 70 % · Core ≥ 85 %"));
}

TEST_F(SettingsViewTest, TheDownloadsFolderIsShownFromTheHomeFolder)
{
    EXPECT_EQ(subtitle(view().downloadsFolder()), QStringLiteral("~/Downloads"));
    const std::pair<const char*, const char*> expected[] = {{"/home/anna", "~"},
                                                            {"/home/anna/Files/Downloads", "~/Files/Downloads"},
                                                            {"/home/annabel/Downloads", "/home/annabel/Downloads"},
                                                            {"/mnt/disk", "/mnt/disk"}};
    for (const auto& [path, text] : expected) {
        settings().downloadsFolderPath.set(path);
        settle();
        EXPECT_EQ(subtitle(view().downloadsFolder()), QString::fromUtf8(text));
    }
}

TEST_F(SettingsViewTest, ALongDownloadsFolderIsCutAndWholeInItsTooltip)
{
    const auto path = "/mnt/" + std::string(200, 'x') + "/Downloads";
    settings().downloadsFolderPath.set(path);
    const auto& label = view().downloadsFolder().text().subtitleLabel();
    EXPECT_EQ(label.toolTip(), plainToolTip(QString::fromStdString(path)));
    EXPECT_EQ(view().downloadsFolder().height(), 56);
    EXPECT_EQ(columnHeight(), 1405);
}

TEST_F(SettingsViewTest, ChooseAsksForAFolder)
{
    press(view().downloadsFolder().button());
    ASSERT_TRUE(panels.folderRequest);
    EXPECT_EQ(panels.folderRequest->prompt, "Choose");
    EXPECT_EQ(panels.folderRequest->folder, "/home/anna/Downloads");
    EXPECT_EQ(panels.folderRequest->window, view().window()->winId());
    EXPECT_FALSE(panels.saveRequest);
    panels.choose("/mnt/films");
    EXPECT_EQ(settings().downloadsFolderPath.get(), "/mnt/films");
    EXPECT_EQ(std::get<std::string>(stored("downloadsFolderPath")), "/mnt/films");
    settle();
    EXPECT_EQ(subtitle(view().downloadsFolder()), QStringLiteral("/mnt/films"));
}

TEST_F(SettingsViewTest, ChooseAsksOnceWhileThePanelIsOpenAndAnewAfterwards)
{
    for (int i = 0; i < 3; ++i)
        press(view().downloadsFolder().button());
    EXPECT_EQ(panels.questions, 1);
    panels.choose(std::nullopt);
    press(view().downloadsFolder().button());
    EXPECT_EQ(panels.questions, 2);
    panels.choose("/mnt/films");
    EXPECT_EQ(settings().downloadsFolderPath.get(), "/mnt/films");
}

TEST_F(SettingsViewTest, ACancelledChoiceLeavesTheFolder)
{
    press(view().downloadsFolder().button());
    const auto writes = fake.userDefaults.writes;
    panels.choose(std::nullopt);
    settle();
    EXPECT_EQ(settings().downloadsFolderPath.get(), "/home/anna/Downloads");
    EXPECT_EQ(fake.userDefaults.writes, writes);
}

TEST_F(SettingsViewTest, AChoiceAfterTheWindowIsGoneIsDropped)
{
    press(view().downloadsFolder().button());
    made.reset();
    panels.choose("/mnt/films");
    settle();
    EXPECT_EQ(settings().downloadsFolderPath.get(), "/home/anna/Downloads");
}

TEST_F(SettingsViewTest, TheWatchListShowsItsAppsInOrder)
{
    watch({"Zoom active", "Amber"});
    ASSERT_EQ(view().watchList().rows().size(), 2u);
    EXPECT_EQ(view().watchList().rows()[0]->labelLabel().text(), QStringLiteral("Zoom active"));
    EXPECT_EQ(view().watchList().rows()[0]->bundleIDLabel().text(), QStringLiteral("org.example.Same"));
    EXPECT_EQ(view().watchList().rows()[1]->labelLabel().text(), QStringLiteral("Amber"));
    watch({});
    EXPECT_TRUE(view().watchList().emptyLabel().isVisible());
}

TEST_F(SettingsViewTest, DeletingARowStoresTheOthersEvenWithEqualIdentifiers)
{
    watch({"One", "Two", "Three"});
    const auto before = settings().customProcesses.get();
    view();
    press(view().watchList().rows()[1]->deleteButton());
    const std::vector expected{before[0], before[2]};
    EXPECT_EQ(settings().customProcesses.get(), expected);
    EXPECT_EQ(storedProcesses(), expected);
    settle();
    EXPECT_EQ(view().watchList().rows().size(), 2u);
}

TEST_F(SettingsViewTest, DeletingTheLastRowMovesTheFocusToTheAddButton)
{
    watch({"One", "Two"});
    activate();
    view().watchList().rows()[1]->deleteButton().setFocus(Qt::TabFocusReason);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    settle();
    EXPECT_TRUE(view().watchList().addButton().hasFocus());
    watch({"One", "Two"});
    view().watchList().rows()[0]->deleteButton().setFocus(Qt::TabFocusReason);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    settle();
    ASSERT_EQ(view().watchList().rows().size(), 1u);
    EXPECT_TRUE(view().watchList().rows()[0]->deleteButton().hasFocus());
}

TEST_F(SettingsViewTest, AnAppIsAddedAtTheEnd)
{
    watch({"One"});
    const CustomProcess added{UUID::random(), "org.example.Same", "Two", 3};
    view().addCustomProcess(added);
    ASSERT_EQ(settings().customProcesses.get().size(), 2u);
    EXPECT_EQ(settings().customProcesses.get().back(), added);
    EXPECT_EQ(storedProcesses().back(), added);
    settle();
    EXPECT_EQ(view().watchList().rows()[1]->labelLabel().text(), QStringLiteral("Two"));
    EXPECT_EQ(columnHeight(), 1426);
}

TEST_F(SettingsViewTest, TheFeedbackButtonOpensTheForm)
{
    press(view().feedback().button());
    press(view().feedback().button());
    EXPECT_EQ(feedbacks, 2);
}

TEST_F(SettingsViewTest, TheTabKeyGoesFromTopToBottom)
{
    watch({"One", "Two"});
    activate();
    auto& list = view().watchList();
    const std::vector<QWidget*> order{view().themeTiles().tiles()[0],  &view().startAtLogin(),
                                      &view().notifications(),         &view().pauseOnLowBattery(),
                                      &view().onlyWhenPluggedIn(),     &view().cpuDetection(),
                                      &view().networkDetection(),      &view().downloadsFolder().button(),
                                      &view().sensitivity().slider(),  &list.rows()[0]->deleteButton(),
                                      &list.rows()[1]->deleteButton(), &list.addButton(),
                                      &view().feedback().button(),     view().themeTiles().tiles()[0]};
    order[0]->setFocus(Qt::TabFocusReason);
    for (std::size_t i = 1; i < order.size(); ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget(), order[i]) << "stop " << i;
    }
    for (std::size_t i = order.size() - 1; i-- > 0;) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
        EXPECT_EQ(QApplication::focusWidget(), order[i]) << "stop " << i << " back";
    }
}

TEST_F(SettingsViewTest, WhatGetsTheFocusIsScrolledIntoView)
{
    activate();
    view().themeTiles().tiles()[0]->setFocus(Qt::TabFocusReason);
    for (int i = 0; i < 10; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        const auto* focused = QApplication::focusWidget();
        const QRect place(focused->mapTo(&view(), QPoint(0, 0)), focused->size());
        EXPECT_GE(place.top(), 0) << i;
        EXPECT_LE(place.bottom(), view().height()) << i;
    }
    EXPECT_EQ(QApplication::focusWidget(), &view().feedback().button());
    EXPECT_GT(view().scrollArea().verticalScrollBar()->value(), 800);
}

TEST_F(SettingsViewTest, AFocusedRowKeepsTwentyToTheEdge)
{
    activate();
    view().startAtLogin().setFocus(Qt::TabFocusReason);
    while (QApplication::focusWidget() != &view().cpuDetection())
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    const auto& row = view().cpuDetection();
    EXPECT_LE(row.mapTo(&view(), QPoint(0, row.height())).y(), view().height() - 20);
}

TEST_F(SettingsViewTest, MayGoWhileChangesAreOnTheirWay)
{
    view();
    settings().cpuSensitivity.set(0.1);
    settings().customProcesses.set({});
    settings().launchAtLogin.set(true);
    made.reset();
    settle();
}

TEST_F(SettingsViewTest, LargerTextIsWholeAndNothingOverlaps)
{
    watch({"One", "Two"});
    const LargerText larger(1.5);
    view().resize(460, 400);
    view().applyTheme(Look::light);
    expectWhole(view().headerLabel(), 30);
    int bottom = view().headerLabel().geometry().bottom();
    for (const auto* section : view().sections()) {
        EXPECT_GT(section->y(), bottom);
        EXPECT_EQ(section->height(), section->heightFor(section->width()));
        bottom = section->geometry().bottom();
        expectWhole(section->headLabel(), 24);
        if (section->hasCaption())
            expectWhole(section->captionLabel(), 23);
        int rowBottom = section->captionLabel().isVisibleTo(section) ? section->captionLabel().geometry().bottom()
                                                                     : section->headLabel().geometry().bottom();
        for (const auto* child : section->children()) {
            const auto* row = dynamic_cast<const SettingsRow*>(child);
            if (!row)
                continue;
            const auto* widget = static_cast<const QWidget*>(child);
            EXPECT_GT(widget->y(), rowBottom);
            EXPECT_EQ(widget->height(), row->heightFor(widget->width()));
            rowBottom = widget->geometry().bottom();
        }
        EXPECT_LT(rowBottom, section->height());
    }
    EXPECT_GE(columnHeight(), bottom + 24);
    for (const auto* text : view().findChildren<RowText*>()) {
        expectWhole(text->titleLabel(), 27);
        EXPECT_GE(text->subtitleLabel().height(), 23);
        EXPECT_GE(text->subtitleLabel().y(), text->titleLabel().geometry().bottom() + 1);
    }
}

} // namespace

} // namespace orrinvale
