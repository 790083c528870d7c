// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "orrinvale/ActivityEntry.h"
#include "orrinvale/WindowController.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace orrinvale
{

class ActivityLogView;
class FilePanels;
class LocalCalendar;
class SerialQueue;
class WakeEngine;

// The activity log window: follows the engine's log and the usage records, clears the log and exports it as text.
class ActivityLogWindowController final : public WindowController
{
    Q_OBJECT

public:
    // All outlive the controller.
    ActivityLogWindowController(WakeEngine& engine, AppSettings& settings, const Platform& platform,
                                const LocalCalendar& calendar, FilePanels& filePanels);
    ~ActivityLogWindowController() override;

    // Selects today.
    void showWindow() override;
    // Empties the log at once, without a question.
    void clearLog();
    // Asks where to, unless the panel is open already, and writes the log as it was when asked; a failure to write is
    // passed over.
    void exportLog();
    void appearanceChanged();

    ActivityLogView& view() const { return *m_view; }
    Instant selectedDate() const { return m_selectedDate; }
    const std::vector<ActivityEntry>& entries() const { return m_entries; }

private:
    void applyTheme() override;
    void subscribe();
    void showEntries(const std::vector<ActivityEntry>& entries);
    void selectDay(Instant date);
    void refreshDayDetail();
    void writeExport(const std::filesystem::path& path, const std::string& text);

    WakeEngine& m_engine;
    const LocalCalendar& m_calendar;
    FilePanels& m_filePanels;
    std::vector<ActivityEntry> m_entries;
    ActivityLogView* m_view; // the window's
    Instant m_selectedDate;
    std::shared_ptr<SerialQueue> m_exports; // its own: the chosen folder may be slow or never answer
    Cancellable m_exportPanel;              // while it is open
    Cancellables m_cancellables;
};

} // namespace orrinvale
