// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/WindowController.h"

#include "kit/WindowEdge.h"
#include "kit/WindowPlacement.h"
#include "orrinvale/AppSettings.h"
#include "orrinvale/ApplicationIcon.h"
#include "orrinvale/ThemeLook.h"
#include "platform/Appearance.h"
#include "platform/Platform.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QWidget>

namespace orrinvale
{

class WindowController::Window final : public QWidget
{
public:
    Window(WindowController& owner, Closing closing) : m_owner(owner), m_closing(closing), m_edge(new WindowEdge(this))
    {
    }

    void setContent(QWidget* given)
    {
        given->setParent(this);
        content = given;
        content->setGeometry(rect());
        m_edge->raise();
    }

    QWidget* content = nullptr;

protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).fillRect(rect(), m_owner.colours().window); }

    void resizeEvent(QResizeEvent*) override
    {
        if (content)
            content->setGeometry(rect());
        m_edge->setGeometry(rect());
    }

    // Whoever asks: where a compositor does, Qt closes the window as if the program had. The program hides it.
    void closeEvent(QCloseEvent* event) override { event->setAccepted(m_closing == Closing::byUser); }

    void keyPressEvent(QKeyEvent* event) override
    {
        const auto isEscape = event->key() == Qt::Key_Escape && !event->isAutoRepeat(); // held, it closed a sheet
        if (isEscape && m_closing == Closing::byUser)
            close();
    }

    // changeEvent() is not called for it.
    bool event(QEvent* event) override
    {
        const auto isHandled = QWidget::event(event);
        if (event->type() == QEvent::ApplicationFontChange && content)
            m_owner.restyle();
        return isHandled;
    }

private:
    WindowController& m_owner;
    Closing m_closing;
    WindowEdge* m_edge;
};

WindowController::WindowController(AppSettings& settings, const Platform& platform, const Shape& shape)
    : m_settings(settings), m_platform(platform), m_window(std::make_unique<Window>(*this, shape.closing))
{
    m_window->setWindowTitle(shape.title);
    m_window->setWindowIcon(applicationIcon());
    m_window->setMinimumSize(shape.minimumSize);
    if (shape.size == shape.minimumSize)
        m_window->setFixedSize(shape.size);
    else
        m_window->resize(shape.size);
    if (shape.closing == Closing::byProgramAlone)
        m_window->setWindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
}

WindowController::~WindowController() = default;

QWidget& WindowController::window() const
{
    return *m_window;
}

Look WindowController::look() const
{
    return lookOf(m_settings);
}

void WindowController::setContent(QWidget* content)
{
    m_window->setContent(content);
    applyTheme();
    m_appearanceSubscriptions += m_platform.appearance.observeChanges([this] { restyle(); });
    m_appearanceSubscriptions += m_settings.appTheme.observeOn(
        m_platform.mainQueue, [this](AppTheme) { restyle(); }, Deliver::changesOnly);
}

void WindowController::restyle()
{
    applyTheme();
    m_window->update();
}

void WindowController::moveToMiddle()
{
    if (const auto* screen = QGuiApplication::primaryScreen())
        m_window->move(cornerInMiddle(screen->availableGeometry(), m_window->size()));
}

void WindowController::showWindow()
{
    restyle();
    if (!m_wasShown) {
        moveToMiddle();
        m_wasShown = true;
    }
    m_window->setWindowState(m_window->windowState() & ~Qt::WindowMinimized);
    m_window->show();
    m_window->raise();
    m_window->activateWindow();
}

} // namespace orrinvale
