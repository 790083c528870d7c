// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "kit/TextField.h"
#include "orrinvale/ActivityLogView.h"
#include "orrinvale/ActivityLogWindowController.h"
#include "orrinvale/AppIconView.h"
#include "orrinvale/AppPickerList.h"
#include "orrinvale/AppPickerSheet.h"
#include "orrinvale/AppSettings.h"
#include "orrinvale/FeedbackFailureWindow.h"
#include "orrinvale/FeedbackView.h"
#include "orrinvale/HeatmapView.h"
#include "orrinvale/OnboardingWindowController.h"
#include "orrinvale/Popover.h"
#include "orrinvale/SettingsWindowController.h"
#include "orrinvale/StatusIcon.h"
#include "orrinvale/StatusPopoverViewController.h"
#include "orrinvale/ThemeLook.h"
#include "orrinvale/WakeEngine.h"
#include "platform/fake/FakeFilePanels.h"
#include "platform/fake/FakePlatform.h"
#include "tests/shots/History.h"
#include "text/LocalCalendar.h"

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QLineEdit>
#include <QPainter>
#include <QPixmap>
#include <QScreen>
#include <QTemporaryDir>
#include <QTemporaryFile>
#include <QThread>

#include <array>
#include <cstdio>

using namespace orrinvale;

namespace
{

// Draws every window in every theme and state into a folder, from made-up data and without a desktop.
// Arguments: the folder, and the text scale (1 when absent). QT_SCALE_FACTOR sets the pixel ratio.
class Shots
{
public:
    Shots(QString folder, AppTheme theme) : m_folder(std::move(folder)), m_theme(theme)
    {
        m_fake.time.setWallClock(madeUpNow());
        m_platform.emplace(m_fake.platform());
        m_settings.emplace(*m_platform, m_calendar);
        m_settings->appTheme.set(theme);
        m_engine.emplace(*m_platform, *m_settings, m_calendar);
    }

    void takeAll()
    {
        popovers();
        activityLog("empty");
        m_engine->activityLog.set(madeUpLog(m_calendar));
        m_engine->appUsageTracker().days.set(madeUpUsage(m_calendar));
        activityLog("rich");
        settings();
        appPicker();
        onboarding();
        feedback();
    }

private:
    void save(QWidget& widget, const std::string& name) const
    {
        widget.ensurePolished();
        QCoreApplication::processEvents();
        const auto file = QStringLiteral("%1/%2-%3.png").arg(m_folder, QString::fromStdString(name), themeName());
        if (!widget.grab().save(file))
            std::fprintf(stderr, "cannot write %s\n", qPrintable(file));
    }

    // Fades, switches and the first picture of a film take their time.
    void settle()
    {
        for (int step = 0; step < 20; ++step) {
            m_fake.time.advance(std::chrono::milliseconds(50));
            QThread::msleep(10);
            QCoreApplication::processEvents();
        }
    }

    QString themeName() const { return QString::fromStdString(std::string(rawValue(m_theme))).toLower(); }

    void popover(const WakeState& state, const WakeSignals& signals, const std::string& name)
    {
        m_engine->state.set(state);
        m_engine->activeSignals.set(signals);
        auto* content = new StatusPopoverViewController(*m_engine, *m_settings, *m_platform);
        Popover popover(content, {content->colours().background, content->colours().separator},
                        Popover::Composition::composited, &QScreen::availableGeometry);
        popover.showAt({});
        settle();
        save(popover, "popover-" + name);
    }

    void popovers()
    {
        popover(WakeState::idle(), {}, "idle");
        popover(WakeState::cooldown(24), {}, "cooldown");
        popover(WakeState::awake("debian-12.iso is downloading"), madeUpSignals(1, m_fake.time.now()), "awake-1");
        popover(WakeState::awake("debian-12.iso is downloading"), madeUpSignals(3, m_fake.time.now()), "awake-3");
    }

    void activityLog(const std::string& name)
    {
        ActivityLogWindowController log(*m_engine, *m_settings, *m_platform, m_calendar, m_panels);
        m_fake.time.runPending();
        log.showWindow();
        save(log.window(), "log-" + name);
        if (name == "empty")
            return;
        log.view().heatmapView().selectDay(m_fake.time.now() - std::chrono::hours(24 * 16));
        save(log.window(), "log-past");
        log.window().resize(log.window().minimumSize());
        save(log.window(), "log-smallest");
        log.window().resize(960, 820);
        log.showWindow();
        save(log.window(), "log-largest");
    }

    void settings()
    {
        SettingsWindowController window(
            *m_settings, *m_platform,
            {m_panels, [this](const auto& id) { return new AppIconView(id, *m_platform, nullptr); }, {}});
        window.showWindow();
        save(window.window(), "settings");
        window.window().resize(540, 1426);
        save(window.window(), "settings-whole-none");
        m_settings->customProcesses.set(
            {{UUID::random(), "fr.handbrake.HandBrake", "HandBrake active", 3},
             {UUID::random(), "org.example.department.of.extremely.descriptive.identifiers.RenderFarm",
              "A Very Long Application Label That Someone Typed Into The Field And Kept", 3}});
        m_fake.time.runPending();
        save(window.window(), "settings-whole");
        window.window().resize(window.window().minimumSize());
        save(window.window(), "settings-smallest");
        m_settings->customProcesses.set({});
    }

    // A made-up icon: the first letter of the name.
    std::string icon(const QString& name) const
    {
        QPixmap pixmap(96, 96);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor::fromHsv(name.at(0).unicode() * 47 % 360, 150, 200));
        painter.drawRoundedRect(4, 4, 88, 88, 20, 20);
        QFont font(QStringLiteral("Inter"));
        font.setPixelSize(56);
        painter.setFont(font);
        painter.setPen(Qt::white);
        painter.drawText(pixmap.rect(), Qt::AlignCenter, name.left(1));
        painter.end();
        const auto file = m_icons.filePath(name.left(1) + QStringLiteral(".png"));
        pixmap.save(file);
        return file.toStdString();
    }

    void appPicker()
    {
        for (const auto* name :
             {"Blender", "Camera Roll", "Dictionary", "File Manager", "HandBrake", "Inkscape", "Kdenlive", "Mail",
              "Terminal", "A Very Long Name That No List of This Width Can Show"})
            m_fake.installedApplications.list.push_back({name, name, "/applications", icon(QString::fromUtf8(name))});
        m_fake.installedApplications.install("org.example.HandyNotes", "Handy Notes");
        m_fake.appearance.motionIsReduced = true; // no picture of a sheet that is fading in
        SettingsWindowController window(*m_settings, *m_platform,
                                        {m_panels, [](const auto&) { return new QWidget; }, {}});
        window.showWindow();
        window.view().onAddApp();
        save(window.window(), "picker-loading");
        settle();
        save(window.window(), "picker-none");
        auto& picker = *window.appPicker();
        picker.list().onChoose(5);
        settle();
        save(window.window(), "picker");
        picker.searchField().line().setText(QStringLiteral("hand"));
        settle();
        save(window.window(), "picker-search");
        picker.searchField().line().clear();
        picker.labelField().line().clear();
        window.window().resize(window.window().minimumSize());
        picker.list().enter();
        settle();
        save(window.window(), "picker-smallest");
    }

    void onboarding()
    {
        OnboardingWindowController window(*m_settings, *m_platform);
        window.showWindow();
        save(window.window(), "onboarding");
    }

    void feedback()
    {
        FeedbackFailureWindow window(*m_settings, *m_platform);
        window.showWindow();
        save(window.window(), "feedback-failed");
        FeedbackView loading(std::make_shared<FeedbackState>(), m_fake.time, FeedbackOverlay::Motion::still);
        loading.applyTheme(lookOf(*m_settings));
        loading.resize(feedbackFrame::size);
        save(loading, "feedback-loading");
    }

    QString m_folder;
    QTemporaryDir m_icons;
    AppTheme m_theme;
    FakePlatform m_fake;
    FakeFilePanels m_panels;
    LocalCalendar m_calendar{"UTC", "en_US"};
    std::optional<Platform> m_platform;
    std::optional<AppSettings> m_settings;
    std::optional<WakeEngine> m_engine;
};

// A screen without a display, large enough for every window at twice the pixels.
QByteArray platformWithScreen(QTemporaryFile& configuration)
{
    configuration.open();
    configuration.write(R"({"screens": [{"name": "screen", "x": 0, "y": 0, "width": 4000, "height": 3000,
                                         "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
    configuration.flush();
    return "offscreen:configfile=" + configuration.fileName().toLocal8Bit();
}

void printMessage(QtMsgType, const QMessageLogContext&, const QString& text)
{
    if (!text.startsWith(QLatin1String("This plugin does not support"))) // without a display nothing can be raised
        std::fprintf(stderr, "%s\n", qPrintable(text));
}

// The status item's pictures as panels show them, light and dark.
void drawTrayItems(const QString& folder)
{
    constexpr auto gap = 12;
    const std::array sides{16, 22, 24, 32, 44, 48};
    for (const auto& [panel, name] : {std::pair(QColor(0xf2f2f2), "light"), std::pair(QColor(0x2b2b2b), "dark")}) {
        QImage image(560, 80, QImage::Format_RGB32);
        image.fill(panel);
        QPainter painter(&image);
        auto left = gap;
        for (const auto& state : {WakeState::awake("a reason"), WakeState::idle()}) {
            for (const auto side : sides) {
                painter.drawPixmap(left, (image.height() - side) / 2, statusIcon(state).pixmap(QSize(side, side), 1.0));
                left += side + gap;
            }
            left += gap;
        }
        painter.end();
        image.save(QStringLiteral("%1/tray-%2.png").arg(folder, QLatin1String(name)));
    }
}

} // namespace

int main(int argc, char** argv)
{
    qInstallMessageHandler(printMessage);
    QTemporaryFile screen;
    qputenv("QT_QPA_PLATFORM", platformWithScreen(screen));
    QApplication application(argc, argv);
    Q_INIT_RESOURCE(resources);
    const auto arguments = QApplication::arguments();
    if (arguments.size() < 2) {
        std::fprintf(stderr, "usage: shots FOLDER [TEXT-SCALE [THEME]]\n");
        return 2;
    }
    QFont font(QStringLiteral("Inter"));
    font.setPixelSize(qRound(13 * arguments.value(2, QStringLiteral("1")).toDouble()));
    QApplication::setFont(font);
    QDir().mkpath(arguments[1]);
    drawTrayItems(arguments[1]);
    for (const auto theme : allAppThemes) {
        if (arguments.size() < 4 || arguments[3].toStdString() == rawValue(theme))
            Shots(arguments[1], theme).takeAll();
    }
    return 0;
}
