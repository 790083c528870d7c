// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/ActivityLogWindowController.h"

#include "base/AtomicFile.h"
#include "base/SerialQueue.h"
#include "kit/TextLabel.h"
#include "kit/WindowButton.h"
#include "orrinvale/ActivityLogView.h"
#include "orrinvale/DayDetailView.h"
#include "orrinvale/HeatmapView.h"
#include "orrinvale/LogExport.h"
#include "orrinvale/WakeEngine.h"
#include "platform/FilePanels.h"
#include "platform/Platform.h"
#include "text/LocalCalendar.h"

namespace orrinvale
{

ActivityLogWindowController::ActivityLogWindowController(WakeEngine& engine, AppSettings& settings,
                                                         const Platform& platform, const LocalCalendar& calendar,
                                                         FilePanels& filePanels)
    : WindowController(settings, platform,
                       {QStringLiteral("orrinvale — Activity Log"), QSize(640, 660), QSize(520, 480)}),
      m_engine(engine), m_calendar(calendar), m_filePanels(filePanels),
      m_view(new ActivityLogView(platform.clock, calendar)), m_selectedDate(platform.clock.now())
{
    setContent(m_view);
    QObject::connect(&m_view->clearButton(), &QAbstractButton::clicked, this, [this] { clearLog(); });
    QObject::connect(&m_view->exportButton(), &QAbstractButton::clicked, this, [this] { exportLog(); });
    m_view->heatmapView().onSelectDay = [this](Instant date) { selectDay(date); };
    subscribe();
}

ActivityLogWindowController::~ActivityLogWindowController() = default;

void ActivityLogWindowController::subscribe()
{
    auto& queue = platform().mainQueue;
    m_cancellables += m_engine.activityLog.observeOn(queue, [this](const auto& entries) { showEntries(entries); });
    m_cancellables += m_engine.appUsageTracker().days.observeOn(queue, [this](const auto&) { refreshDayDetail(); });
    m_cancellables += m_calendar.observeTimeZone([this] {
        showEntries(m_entries);
        refreshDayDetail();
    });
}

void ActivityLogWindowController::showEntries(const std::vector<ActivityEntry>& entries)
{
    m_entries = entries;
    m_view->statsLabel().setContent(QStringLiteral("%1 entries").arg(entries.size()));
    m_view->heatmapView().setEntries(entries);
    m_view->heatmapView().setSelectedDate(m_selectedDate);
}

void ActivityLogWindowController::selectDay(Instant date)
{
    m_selectedDate = date;
    refreshDayDetail();
    m_view->heatmapView().setSelectedDate(date);
}

void ActivityLogWindowController::refreshDayDetail()
{
    const auto now = look();
    m_view->dayDetailView().update(m_selectedDate, m_engine.appUsageTracker().recordFor(m_selectedDate),
                                   now == Look::dark, now == Look::sakura);
}

void ActivityLogWindowController::showWindow()
{
    WindowController::showWindow();
    selectDay(platform().clock.now());
    m_view->setFocus(Qt::OtherFocusReason);
}

void ActivityLogWindowController::appearanceChanged()
{
    applyTheme();
}

void ActivityLogWindowController::applyTheme()
{
    m_view->setTheme(look());
}

void ActivityLogWindowController::clearLog()
{
    m_engine.activityLog.set({});
    m_engine.logStore().save(m_engine.activityLog.get());
}

void ActivityLogWindowController::exportLog()
{
    if (m_exportPanel)
        return; // the question stands
    const auto write = [text = logExportText(m_entries, m_calendar), this](const auto& path) {
        m_exportPanel.cancel();
        if (path)
            writeExport(*path, text);
    };
    m_exportPanel = m_filePanels.chooseFile({logExportFileName, "text/plain", window().winId()}, write);
}

void ActivityLogWindowController::writeExport(const std::filesystem::path& path, const std::string& text)
{
    if (!m_exports)
        m_exports = platform().serialQueues.make("com.orrinvale.logexport");
    // A queue drops waiting work when it goes: the work keeps it.
    m_exports->post([queue = m_exports, path, text] { writeFileAtomically(path, text, FileAccess::asUsual); });
}

} // namespace orrinvale
