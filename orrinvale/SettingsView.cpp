// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/SettingsView.h"

#include "kit/ContinuousSlider.h"
#include "kit/OverlayScrollArea.h"
#include "kit/TextLabel.h"
#include "kit/VisibleText.h"
#include "kit/WindowButton.h"
#include "kit/WindowText.h"
#include "orrinvale/AppSettings.h"
#include "orrinvale/ButtonRow.h"
#include "orrinvale/RowText.h"
#include "orrinvale/SensitivityRow.h"
#include "orrinvale/SettingsSection.h"
#include "orrinvale/SettingsTexts.h"
#include "orrinvale/ThemeTiles.h"
#include "orrinvale/ThresholdsRow.h"
#include "orrinvale/ToggleRow.h"
#include "orrinvale/WatchListView.h"
#include "platform/Appearance.h"
#include "platform/ApplicationSupport.h"
#include "platform/FilePanels.h"
#include "platform/Platform.h"

#include <QPainter>

#include <algorithm>

namespace orrinvale
{

namespace
{

constexpr auto inset = 20;
constexpr auto sectionGap = 24;
constexpr auto headerLine = 24;
constexpr auto headerToSections = 20;
constexpr auto paddingBottom = 24;

// A switch that shows and sets one of the settings.
void bind(ToggleRow& row, Published<bool>& setting, MainQueue& queue, Cancellables& cancellables)
{
    row.setOn(setting.get());
    row.onToggle = [&setting](bool isOn) { setting.set(isOn); };
    cancellables += setting.observeOn(
        queue, [&row](bool isOn) { row.setOn(isOn); }, Deliver::changesOnly);
}

} // namespace

SettingsView::SettingsView(AppSettings& settings, const Platform& platform, Surroundings surroundings)
    : m_settings(settings), m_platform(platform), m_surroundings(std::move(surroundings)),
      m_colours(&WindowPalette::of(Look::light)), m_scrollArea(new OverlayScrollArea(this)), m_column(new QWidget),
      m_header(new TextLabel(m_column, Qt::ElideRight))
{
    m_scrollArea->setWidget(m_column);
    m_column->setAutoFillBackground(false);
    buildAppearance();
    buildSwitches();
    buildSignalSources();
    buildSensitivity();
    buildWatchList();
    buildFeedback();
    subscribe();
}

SettingsView::~SettingsView() = default;

SettingsSection* SettingsView::addSection(const char* head, const char* caption)
{
    m_sections.push_back(new SettingsSection(QString::fromUtf8(head), QString::fromUtf8(caption), m_column));
    return m_sections.back();
}

ToggleRow* SettingsView::addSwitch(SettingsSection* section, const char* title, const char* subtitle)
{
    auto* row = new ToggleRow(QString::fromUtf8(title), QString::fromUtf8(subtitle), section);
    section->addRow(row);
    return row;
}

void SettingsView::buildAppearance()
{
    auto* section = addSection("APPEARANCE", "");
    m_themeTiles = new ThemeTiles(section);
    m_themeTiles->onChoose = [this](AppTheme theme) {
        m_settings.appTheme.set(theme);
        m_settings.applyTheme();
    };
    section->addRow(m_themeTiles);
}

void SettingsView::buildSwitches()
{
    m_startAtLogin = addSwitch(addSection("GENERAL", ""), "Start at Login", "Automatically start orrinvale at login");
    m_notifications = addSwitch(addSection("NOTIFICATIONS", ""), "Notifications", "Show alerts on status changes");
    auto* battery = addSection("BATTERY & SAFETY", "Avoids the classic keep-awake problem: a Mac left running "
                                                   "unattended in a bag, draining its battery or overheating.");
    m_pauseOnLowBattery = addSwitch(battery, "Pause on Low Battery", "");
    m_onlyWhenPluggedIn = addSwitch(battery, "Only While Plugged In", "Never keeps the Mac awake on battery power");
}

void SettingsView::buildSignalSources()
{
    auto* section =
        addSection("SIGNAL SOURCES", "Turn off a detection method if it triggers too often for your workflow.");
    m_cpuDetection =
        addSwitch(section, "CPU Load Detection", "Wakes for sustained high CPU usage (builds, renders, exports)");
    m_networkDetection =
        addSwitch(section, "Network Activity Detection", "Wakes for sustained high-throughput uploads/downloads");
    m_downloadsFolder = new ButtonRow(QStringLiteral("Downloads Folder"), QString(), QStringLiteral("Choose"), section,
                                      Qt::ElideMiddle);
    QObject::connect(&m_downloadsFolder->button(), &QAbstractButton::clicked, this,
                     [this] { chooseDownloadsFolder(); });
    section->addRow(m_downloadsFolder);
}

void SettingsView::buildSensitivity()
{
    auto* section =
        addSection("CPU SENSITIVITY", "Sets how much CPU load is needed for orrinvale to keep the Mac awake.");
    m_sensitivity = new SensitivityRow(section);
    m_sensitivity->slider().onChange = [this](double value) {
        m_settings.cpuSensitivity.set(value);
        showThresholds();
    };
    m_thresholds = new ThresholdsRow(section);
    section->addRow(m_sensitivity);
    section->addRow(m_thresholds);
}

void SettingsView::buildWatchList()
{
    auto* section =
        addSection("CUSTOM WATCH LIST", "Add apps – orrinvale keeps the Mac awake while these apps are running.");
    m_watchList = new WatchListView(m_surroundings.makeIcon, section);
    m_watchList->onDelete = [this](const UUID& id) { deleteCustomProcess(id); };
    m_watchList->onHeightChange = [this] { layOut(); };
    QObject::connect(&m_watchList->addButton(), &QAbstractButton::clicked, this, [this] {
        if (onAddApp)
            onAddApp();
    });
    section->addRow(m_watchList);
}

void SettingsView::buildFeedback()
{
    auto* section = addSection("FEEDBACK", "orrinvale is free — your feedback shapes what gets built next.");
    m_feedback =
        new ButtonRow(QStringLiteral("Send Feedback"), QStringLiteral("Share thoughts, bugs, or feature ideas"),
                      QStringLiteral("Open"), section);
    QObject::connect(&m_feedback->button(), &QAbstractButton::clicked, this, [this] {
        if (m_surroundings.openFeedback)
            m_surroundings.openFeedback();
    });
    section->addRow(m_feedback);
}

void SettingsView::subscribe()
{
    auto& queue = m_platform.mainQueue;
    bind(*m_startAtLogin, m_settings.launchAtLogin, queue, m_cancellables);
    bind(*m_notifications, m_settings.notificationsEnabled, queue, m_cancellables);
    bind(*m_pauseOnLowBattery, m_settings.pauseOnLowBattery, queue, m_cancellables);
    bind(*m_onlyWhenPluggedIn, m_settings.onlyWhenPluggedIn, queue, m_cancellables);
    bind(*m_cpuDetection, m_settings.cpuSignalEnabled, queue, m_cancellables);
    bind(*m_networkDetection, m_settings.networkSignalEnabled, queue, m_cancellables);
    const auto follow = [&](auto& setting, auto show) {
        show(setting.get());
        m_cancellables += setting.observeOn(queue, show, Deliver::changesOnly);
    };
    follow(m_settings.appTheme, [this](AppTheme theme) { m_themeTiles->choose(theme); });
    follow(m_settings.lowBatteryThreshold, [this](std::int64_t threshold) {
        m_pauseOnLowBattery->setSubtitle(QString::fromStdString(lowBatterySubtitle(threshold)));
    });
    follow(m_settings.downloadsFolderPath, [this](const std::string& path) { showDownloadsFolder(path); });
    follow(m_settings.cpuSensitivity, [this](double) {
        m_sensitivity->slider().setValue(m_settings.cpuSensitivity.get());
        showThresholds();
    });
    follow(m_settings.customProcesses, [this](const auto& processes) { m_watchList->setProcesses(processes); });
}

void SettingsView::showThresholds()
{
    const auto text = thresholdsText(m_settings.cpuBusyThreshold(), m_settings.cpuSingleCoreThreshold());
    m_thresholds->setText(QString::fromStdString(text));
    m_sensitivity->slider().setAccessibleDescription(QString::fromStdString(text));
}

void SettingsView::showDownloadsFolder(const std::string& path)
{
    const auto home = m_platform.applicationSupport.homeDirectory().string();
    m_downloadsFolder->text().setSubtitle(visibleText(abbreviatedWithTilde(path, home)));
}

void SettingsView::chooseDownloadsFolder()
{
    if (m_folderPanel)
        return; // the question stands
    const auto take = [this](const std::optional<std::filesystem::path>& folder) {
        m_folderPanel.cancel();
        if (folder)
            m_settings.downloadsFolderPath.set(folder->string());
    };
    m_folderPanel = m_surroundings.filePanels.chooseFolder(
        {"Choose", m_settings.downloadsFolderPath.get(), window()->winId()}, take);
}

void SettingsView::addCustomProcess(const CustomProcess& process)
{
    auto processes = m_settings.customProcesses.get();
    processes.push_back(process);
    m_settings.customProcesses.set(std::move(processes));
}

void SettingsView::deleteCustomProcess(const UUID& id)
{
    auto processes = m_settings.customProcesses.get();
    std::erase_if(processes, [&](const auto& process) { return process.id == id; });
    m_settings.customProcesses.set(std::move(processes));
}

void SettingsView::applyTheme(Look look)
{
    m_colours = &WindowPalette::of(look);
    m_header->setContent(look == Look::sakura ? QStringLiteral("🌸  Settings") : QStringLiteral("⚙️  Settings"));
    applyTextStyle(*m_header, windowText::windowHead, m_colours->primaryText);
    m_scrollArea->setThumbColour(m_colours->scrollThumb);
    const auto isAnimated = !m_platform.appearance.reducesMotion();
    for (auto* row : {m_startAtLogin, m_notifications, m_pauseOnLowBattery, m_onlyWhenPluggedIn, m_cpuDetection,
                      m_networkDetection})
        row->setAnimated(isAnimated);
    for (auto* section : m_sections)
        section->applyTheme(*m_colours);
    layOut();
    update();
}

void SettingsView::layOut()
{
    if (m_sections.empty())
        return;
    m_scrollArea->setGeometry(rect());
    const auto inner = width() - 2 * inset;
    const auto header = std::max(headerLine, withText(headerLine));
    m_header->setGeometry(inset, inset, inner, header);
    auto top = inset + header + headerToSections;
    for (auto* section : m_sections) {
        section->setGeometry(inset, top, inner, section->heightFor(inner));
        top += section->height() + sectionGap;
    }
    m_column->resize(width(), top - sectionGap + paddingBottom);
}

void SettingsView::resizeEvent(QResizeEvent*)
{
    layOut();
}

void SettingsView::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), m_colours->window);
}

} // namespace orrinvale
