// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "orrinvale/FeedbackProgram.h"
#include "orrinvale/WindowController.h"

#include <functional>
#include <optional>

namespace orrinvale
{

class FeedbackView;
struct FeedbackState;

// The window with the feedback form. A program of its own shows it, because the web engine's memory does not come back
// before its process ends; only where that program is missing or breaks down a window of ours says that the form could
// not be loaded. Dropping the controller closes either window.
class FeedbackWindowController final : public WindowController
{
    Q_OBJECT

public:
    // nullopt where the program is not installed.
    using FindProgram = std::function<std::optional<QString>()>;
    static std::optional<QString> findProgram();

    FeedbackWindowController(AppSettings& settings, const Platform& platform, FindProgram find = findProgram);
    ~FeedbackWindowController() override;

    // Never waits. The form is loaded anew each time the window opens.
    void showWindow() override;
    bool isProgramRunning() const { return m_program != nullptr; }

private:
    void applyTheme() override;
    void start(const QString& path);
    void ended(FeedbackProgram::Ending ending);
    void showFailure();

    FindProgram m_find;
    std::shared_ptr<FeedbackState> m_state;
    FeedbackView* m_view; // the window's
    std::unique_ptr<FeedbackProgram> m_program;
    Cancellable m_startLimit;
};

} // namespace orrinvale
