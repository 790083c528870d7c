// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Cancellable.h"
#include "kit/WindowPalette.h"

#include <QObject>
#include <QSize>

#include <memory>

class QWidget;

namespace orrinvale
{

class AppSettings;
struct Platform;

// Owns one ordinary window that is made once, hidden when it is closed, and coloured anew when it is shown, when the
// theme or the desktop's appearance changes, and when the desktop's font does. Main thread.
class WindowController : public QObject
{
    Q_OBJECT

public:
    enum class Closing { byUser, byProgramAlone };

    struct Shape {
        QString title;
        QSize size;
        QSize minimumSize; // equal to the size: it cannot be resized
        Closing closing = Closing::byUser;
    };

    ~WindowController() override;

    // Brings the window in front of everything, on the middle of the screen the first time.
    virtual void showWindow();
    QWidget& window() const;

protected:
    WindowController(AppSettings& settings, const Platform& platform, const Shape& shape);

    // Fills the window from now on. To be called once.
    void setContent(QWidget* content);
    // Gives everything the colours and fonts of the present theme.
    virtual void applyTheme() = 0;

    AppSettings& settings() const { return m_settings; }
    const Platform& platform() const { return m_platform; }
    Look look() const;
    const WindowPalette& colours() const { return WindowPalette::of(look()); }

private:
    class Window;

    void restyle();
    void moveToMiddle();

    AppSettings& m_settings;
    const Platform& m_platform;
    std::unique_ptr<Window> m_window;
    bool m_wasShown = false;
    Cancellables m_appearanceSubscriptions;
};

} // namespace orrinvale
