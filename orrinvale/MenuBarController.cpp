// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/MenuBarController.h"

#include "base/MainQueue.h"
#include "orrinvale/AppSettings.h"
#include "orrinvale/StatusIcon.h"
#include "orrinvale/StatusPopoverViewController.h"
#include "orrinvale/WakeEngine.h"
#include "platform/Appearance.h"
#include "platform/Platform.h"
#include "tray/StatusItem.h"

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

// The press that closes the popover may be followed by the tray's own activation of the very same click.
constexpr auto sameClick = 300ms;

Popover::Colours coloursOf(const StatusPopoverViewController& content)
{
    return {content.colours().background, content.colours().separator};
}

} // namespace

MenuBarController::MenuBarController(WakeEngine& engine, AppSettings& settings, const Platform& platform,
                                     StatusItem& statusItem, AvailableGeometry availableGeometry,
                                     Destinations destinations)
    : m_engine(engine), m_settings(settings), m_platform(platform), m_statusItem(statusItem),
      m_availableGeometry(std::move(availableGeometry)), m_destinations(std::move(destinations))
{
    m_statusItem.onClick = [this] { handleClick(); };
    m_statusItem.setMenu(menu());
    drawIcon(WakeState::idle());
    subscribe();
}

MenuBarController::~MenuBarController()
{
    m_statusItem.onClick = nullptr;
    m_statusItem.setMenu({});
    if (m_popover)
        m_popover->onClose = nullptr;
    delete m_popover;
}

// The mode has no subscription: the toggle already shows a mode chosen there, and the decision that follows does the
// rest.
void MenuBarController::subscribe()
{
    auto& queue = m_platform.mainQueue;
    m_cancellables += m_engine.state.observeOn(queue, [this](const WakeState& state) {
        drawIcon(state);
        if (m_popoverViewController)
            m_popoverViewController->update(state, m_engine.activeSignals.get(), m_engine.mode.get());
    });
    m_cancellables += m_engine.activeSignals.observeOn(queue, [this](const WakeSignals& signals) {
        if (m_popoverViewController)
            m_popoverViewController->update(m_engine.state.get(), signals, m_engine.mode.get());
    });
}

void MenuBarController::drawIcon(const WakeState& state)
{
    static const auto awake = statusIcon(WakeState::awake({}));
    static const auto idle = statusIcon(WakeState::idle());
    m_statusItem.setIcon(state.isIdle() ? idle : awake);
    m_statusItem.setToolTip(statusToolTip(state));
}

void MenuBarController::handleClick()
{
    if (m_popover)
        closePopover();
    else if (!m_justClosed)
        openPopover(m_statusItem.anchor());
}

void MenuBarController::comeForward()
{
    if (!m_popover)
        openPopover(StatusItemAnchor());
}

void MenuBarController::openPopover(const StatusItemAnchor& anchor)
{
    m_popoverViewController = new StatusPopoverViewController(m_engine, m_settings, m_platform);
    wireRows();
    const auto isComposited = m_platform.appearance.isComposited();
    m_popover =
        new Popover(m_popoverViewController, coloursOf(*m_popoverViewController),
                    isComposited ? Popover::Composition::composited : Popover::Composition::none, m_availableGeometry);
    m_popoverViewController->onColoursChanged = [popover = m_popover, content = m_popoverViewController] {
        popover->setColours(coloursOf(*content));
    };
    m_popover->onClose = [this](Popover::Closing closing) { popoverClosed(closing); };
    m_popover->showAt(anchor);
}

void MenuBarController::wireRows()
{
    auto& content = *m_popoverViewController;
    content.onModeChanged = [this](WakeMode mode) { changeMode(mode); };
    content.onShowLog = leadTo(m_destinations.activityLog);
    content.onShowSettings = leadTo(m_destinations.settings);
    content.onQuit = leadTo(m_destinations.quit);
}

std::function<void()> MenuBarController::leadTo(const std::function<void()>& destination)
{
    return [this, &destination] {
        closePopover();
        if (destination)
            destination();
    };
}

// Under the names of the rows that lead to the same.
StatusMenu MenuBarController::menu()
{
    return {{QStringLiteral("Open orrinvale"), [this] { comeForward(); }},
            {QStringLiteral("Activity Log"), leadTo(m_destinations.activityLog)},
            {QStringLiteral("Settings"), leadTo(m_destinations.settings)},
            {QStringLiteral("Quit"), leadTo(m_destinations.quit)}};
}

void MenuBarController::changeMode(WakeMode mode)
{
    m_engine.mode.set(mode);
    m_settings.wakeMode.set(mode);
    m_engine.evaluate();
}

void MenuBarController::closePopover()
{
    if (m_popover)
        m_popover->closeByOwner();
}

void MenuBarController::popoverClosed(Popover::Closing closing)
{
    if (closing != Popover::Closing::owner)
        m_statusItem.forgetClick(); // no window comes of it
    m_popover->deleteLater();       // with its content: the row that closed it may still be at work
    m_popover = nullptr;
    m_popoverViewController = nullptr;
    if (closing == Popover::Closing::elsewhere)
        m_justClosed = m_platform.mainQueue.after(sameClick, [this] { m_justClosed.cancel(); });
}

} // namespace orrinvale
