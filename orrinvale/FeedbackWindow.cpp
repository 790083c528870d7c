// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/FeedbackWindow.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QScreen>

#include <utility>

namespace orrinvale
{

namespace
{

constexpr QSize firstSize(520, 640);
// Everything but the button that minimizes.
constexpr auto flags = Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                       Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint;

} // namespace

FeedbackWindow::FeedbackWindow(std::shared_ptr<FeedbackState> state, MainQueue& queue, Look look,
                               FeedbackOverlay::Motion motion)
    : QWidget(nullptr, flags), m_view(new FeedbackView(std::move(state), queue, look, motion))
{
    setWindowIcon(QIcon::fromTheme(QStringLiteral("orrinvale")));
    setWindowTitle(QStringLiteral("Feedback"));
    m_view->setParent(this);
    setMinimumSize(m_view->minimumSize());
    resize(firstSize);
    const auto available = screen()->availableGeometry();
    move(available.center() - rect().center());
}

void FeedbackWindow::bringForward()
{
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void FeedbackWindow::closeEvent(QCloseEvent* event)
{
    event->accept();
    Q_EMIT closed();
}

void FeedbackWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}

void FeedbackWindow::resizeEvent(QResizeEvent*)
{
    m_view->setGeometry(rect());
}

} // namespace orrinvale
