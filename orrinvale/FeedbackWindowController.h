// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Cancellable.h"
#include "orrinvale/FeedbackProgram.h"

#include <functional>
#include <optional>

class QWidget;

namespace orrinvale
{

class AppSettings;
class FeedbackFailureWindow;
struct Platform;

// The window with the feedback form. A program of its own shows it, because the web engine's memory does not come back
// before its process ends; only where that program is missing or breaks down a window of ours says that the form could
// not be loaded. Dropping the controller closes either window. Main thread.
class FeedbackWindowController final : public QObject
{
    Q_OBJECT

public:
    // nullopt where the program is not installed.
    using FindProgram = std::function<std::optional<QString>()>;
    static std::optional<QString> findProgram();

    FeedbackWindowController(AppSettings& settings, const Platform& platform, FindProgram find = findProgram);
    ~FeedbackWindowController() override;

    // Brings the window forward, or opens it; the form is loaded anew each time it opens. Never waits.
    void showWindow();

    bool isProgramRunning() const { return m_program != nullptr; }
    // Null until it was needed.
    QWidget* failureWindow() const;

private:
    void start(const QString& path);
    void ended(FeedbackProgram::Ending ending);
    void showFailure();
    void tellLook();

    AppSettings& m_settings;
    const Platform& m_platform;
    FindProgram m_find;
    std::unique_ptr<FeedbackProgram> m_program;
    std::unique_ptr<FeedbackFailureWindow> m_failureWindow;
    Cancellable m_startLimit;
    Cancellables m_cancellables;
};

} // namespace orrinvale
