// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "feedback/FeedbackWindow.h"

#include "kit/WindowPlacement.h"

#include <QKeyEvent>
#include <QScreen>

namespace orrinvale
{

FeedbackWindow::FeedbackWindow(FeedbackView* view, Look look)
    : QWidget(nullptr, feedbackFrame::flags), m_view(view), m_look(look)
{
    setWindowTitle(feedbackFrame::title);
    setWindowIcon(QIcon::fromTheme(QStringLiteral("orrinvale")));
    m_view->setParent(this);
    m_view->applyTheme(look);
    setMinimumSize(feedbackFrame::minimumSize);
    resize(feedbackFrame::size);
    move(cornerInMiddle(screen()->availableGeometry(), size()));
}

void FeedbackWindow::applyTheme(Look look)
{
    m_look = look;
    m_view->applyTheme(look);
}

void FeedbackWindow::bringForward()
{
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

// changeEvent() is not called for it.
bool FeedbackWindow::event(QEvent* event)
{
    const auto isHandled = QWidget::event(event);
    if (event->type() == QEvent::ApplicationFontChange)
        m_view->applyTheme(m_look);
    return isHandled;
}

void FeedbackWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && !event->isAutoRepeat())
        close();
    else
        QWidget::keyPressEvent(event);
}

void FeedbackWindow::resizeEvent(QResizeEvent*)
{
    m_view->setGeometry(rect());
}

} // namespace orrinvale
