// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/FeedbackWindowController.h"

#include "base/MainQueue.h"
#include "orrinvale/FeedbackView.h"
#include "orrinvale/InstalledFiles.h"
#include "platform/Appearance.h"
#include "platform/Platform.h"

namespace orrinvale
{

namespace
{

using namespace std::chrono_literals;

// A program that has shown no window by then never will.
constexpr auto startLimit = 12s;

FeedbackOverlay::Motion motionOf(const Platform& platform)
{
    return platform.appearance.reducesMotion() ? FeedbackOverlay::Motion::still : FeedbackOverlay::Motion::moving;
}

std::shared_ptr<FeedbackState> failedState()
{
    auto state = std::make_shared<FeedbackState>();
    state->loadFailed.set(true);
    state->isLoading.set(false);
    return state;
}

} // namespace

std::optional<QString> FeedbackWindowController::findProgram()
{
    return moduleFile(QStringLiteral("orrinvale-feedback"));
}

FeedbackWindowController::FeedbackWindowController(AppSettings& settings, const Platform& platform, FindProgram find)
    : WindowController(settings, platform, {feedbackFrame::title, feedbackFrame::size, feedbackFrame::minimumSize}),
      m_find(std::move(find)), m_state(failedState()),
      m_view(new FeedbackView(m_state, platform.mainQueue, motionOf(platform)))
{
    window().setWindowFlags(feedbackFrame::flags);
    setContent(m_view);
}

FeedbackWindowController::~FeedbackWindowController() = default;

void FeedbackWindowController::showWindow()
{
    if (m_program)
        return m_program->raise();
    const auto path = window().isVisible() ? std::nullopt : m_find();
    if (path)
        start(*path);
    else
        showFailure();
}

void FeedbackWindowController::applyTheme()
{
    m_view->applyTheme(look());
    if (m_program)
        m_program->applyTheme(look());
}

void FeedbackWindowController::start(const QString& path)
{
    m_program = std::make_unique<FeedbackProgram>(path, look(), motionOf(platform()));
    connect(m_program.get(), &FeedbackProgram::shown, this, [this] { m_startLimit.cancel(); });
    connect(m_program.get(), &FeedbackProgram::ended, this, &FeedbackWindowController::ended);
    m_startLimit = platform().mainQueue.after(startLimit, [this] { ended(FeedbackProgram::Ending::Failed); });
}

void FeedbackWindowController::ended(FeedbackProgram::Ending ending)
{
    m_startLimit.cancel();
    m_program->disconnect(this);
    m_program.release()->deleteLater(); // it may be what is calling
    if (ending == FeedbackProgram::Ending::Failed)
        showFailure();
}

void FeedbackWindowController::showFailure()
{
    WindowController::showWindow();
}

} // namespace orrinvale
