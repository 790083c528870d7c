// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Cancellable.h"
#include "kit/WindowPalette.h"
#include "orrinvale/CustomProcess.h"

#include <QWidget>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace orrinvale
{

class AppSettings;
class ButtonRow;
class FilePanels;
class OverlayScrollArea;
class RowText;
class SensitivityRow;
class SettingsSection;
class TextLabel;
class ThemeTiles;
class ThresholdsRow;
class ToggleRow;
class WatchListView;
struct Platform;

// What the settings window shows: a scrolling column of eight sections. Every control writes into the settings at
// once, and every change of the settings shows at once. Main thread.
class SettingsView final : public QWidget
{
    Q_OBJECT

public:
    // What the view leads to, and what it needs to show an application's icon.
    struct Surroundings {
        FilePanels& filePanels;
        std::function<QWidget*(const std::string& bundleID)> makeIcon;
        std::function<void()> openFeedback;
    };

    SettingsView(AppSettings& settings, const Platform& platform, Surroundings surroundings);
    ~SettingsView() override;

    void applyTheme(Look look);

    // Called when the user wants to add an application to the watch list.
    std::function<void()> onAddApp;
    // What an application picker hands over: appended to the watch list.
    void addCustomProcess(const CustomProcess& process);

    TextLabel& headerLabel() const { return *m_header; }
    const std::vector<SettingsSection*>& sections() const { return m_sections; }
    OverlayScrollArea& scrollArea() const { return *m_scrollArea; }
    ThemeTiles& themeTiles() const { return *m_themeTiles; }
    ToggleRow& startAtLogin() const { return *m_startAtLogin; }
    ToggleRow& notifications() const { return *m_notifications; }
    ToggleRow& pauseOnLowBattery() const { return *m_pauseOnLowBattery; }
    ToggleRow& onlyWhenPluggedIn() const { return *m_onlyWhenPluggedIn; }
    ToggleRow& cpuDetection() const { return *m_cpuDetection; }
    ToggleRow& networkDetection() const { return *m_networkDetection; }
    ButtonRow& downloadsFolder() const { return *m_downloadsFolder; }
    SensitivityRow& sensitivity() const { return *m_sensitivity; }
    ThresholdsRow& thresholds() const { return *m_thresholds; }
    WatchListView& watchList() const { return *m_watchList; }
    ButtonRow& feedback() const { return *m_feedback; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    SettingsSection* addSection(const char* head, const char* caption);
    static ToggleRow* addSwitch(SettingsSection* section, const char* title, const char* subtitle);
    void buildAppearance();
    void buildSwitches();
    void buildSignalSources();
    void buildSensitivity();
    void buildWatchList();
    void buildFeedback();
    void subscribe();
    void showThresholds();
    void showDownloadsFolder(const std::string& path);
    void chooseDownloadsFolder();
    void deleteCustomProcess(const UUID& id);
    void layOut();

    AppSettings& m_settings;
    const Platform& m_platform;
    Surroundings m_surroundings;
    const WindowPalette* m_colours;
    OverlayScrollArea* m_scrollArea;
    QWidget* m_column;
    TextLabel* m_header;
    std::vector<SettingsSection*> m_sections;
    ThemeTiles* m_themeTiles = nullptr;
    ToggleRow* m_startAtLogin = nullptr;
    ToggleRow* m_notifications = nullptr;
    ToggleRow* m_pauseOnLowBattery = nullptr;
    ToggleRow* m_onlyWhenPluggedIn = nullptr;
    ToggleRow* m_cpuDetection = nullptr;
    ToggleRow* m_networkDetection = nullptr;
    ButtonRow* m_downloadsFolder = nullptr;
    SensitivityRow* m_sensitivity = nullptr;
    ThresholdsRow* m_thresholds = nullptr;
    WatchListView* m_watchList = nullptr;
    ButtonRow* m_feedback = nullptr;
    Cancellable m_folderPanel; // while it is open
    Cancellables m_cancellables;
};

} // namespace orrinvale
