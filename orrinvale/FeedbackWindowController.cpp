// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/FeedbackWindowController.h"

#include "base/MainQueue.h"
#include "orrinvale/AppSettings.h"
#include "orrinvale/FeedbackFailureWindow.h"
#include "orrinvale/ThemeLook.h"
#include "platform/Appearance.h"
#include "platform/Platform.h"
#include "platform/qt/InstalledFiles.h"

#include <QWidget>

namespace orrinvale
{

namespace
{

using namespace std::chrono_literals;

// A program that has shown no window by then never will.
constexpr auto startLimit = 12s;

} // namespace

std::optional<QString> FeedbackWindowController::findProgram()
{
    return moduleFile(QStringLiteral("orrinvale-feedback"));
}

FeedbackWindowController::FeedbackWindowController(AppSettings& settings, const Platform& platform, FindProgram find)
    : m_settings(settings), m_platform(platform), m_find(std::move(find))
{
    m_cancellables += platform.appearance.observeChanges([this] { tellLook(); });
    m_cancellables += settings.appTheme.observeOn(
        platform.mainQueue, [this](AppTheme) { tellLook(); }, Deliver::changesOnly);
}

FeedbackWindowController::~FeedbackWindowController() = default;

QWidget* FeedbackWindowController::failureWindow() const
{
    return m_failureWindow ? &m_failureWindow->window() : nullptr;
}

void FeedbackWindowController::showWindow()
{
    if (m_program)
        return m_program->raise();
    const auto isFailureShown = m_failureWindow && m_failureWindow->window().isVisible();
    const auto path = isFailureShown ? std::nullopt : m_find();
    if (path)
        start(*path);
    else
        showFailure();
}

void FeedbackWindowController::start(const QString& path)
{
    const auto motion =
        m_platform.appearance.reducesMotion() ? FeedbackOverlay::Motion::still : FeedbackOverlay::Motion::moving;
    m_program = std::make_unique<FeedbackProgram>(path, lookOf(m_settings), motion);
    connect(m_program.get(), &FeedbackProgram::shown, this, [this] { m_startLimit.cancel(); });
    connect(m_program.get(), &FeedbackProgram::ended, this, &FeedbackWindowController::ended);
    m_startLimit = m_platform.mainQueue.after(startLimit, [this] { ended(FeedbackProgram::Ending::failed); });
}

void FeedbackWindowController::ended(FeedbackProgram::Ending ending)
{
    m_startLimit.cancel();
    m_program->disconnect(this);
    m_program.release()->deleteLater(); // it may be what is calling
    if (ending == FeedbackProgram::Ending::failed)
        showFailure();
}

void FeedbackWindowController::showFailure()
{
    // Only now: its fonts are memory that most users never need.
    if (!m_failureWindow)
        m_failureWindow = std::make_unique<FeedbackFailureWindow>(m_settings, m_platform);
    m_failureWindow->showWindow();
}

void FeedbackWindowController::tellLook()
{
    if (m_program)
        m_program->applyTheme(lookOf(m_settings));
}

} // namespace orrinvale
