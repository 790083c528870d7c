// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/IllustrationView.h"

#include "base/MainQueue.h"

#include <QPainter>

namespace orrinvale
{

namespace
{

constexpr auto cornerRadius = 16.0;

} // namespace

QSize aspectFill(const QSize& film, const QSize& bounds)
{
    return film.scaled(bounds, Qt::KeepAspectRatioByExpanding);
}

IllustrationView::IllustrationView(MainQueue& queue, Motion motion, OpenFilm open, QWidget* parent)
    : QWidget(parent), m_queue(queue), m_motion(motion), m_open(std::move(open))
{
    play(QStringLiteral("illustration_asleep"));
}

IllustrationView::~IllustrationView() = default;

void IllustrationView::play(const QString& name)
{
    m_name = name;
    if (isVisible() && !m_start)
        start();
}

void IllustrationView::stop()
{
    m_start.cancel();
    m_timer.cancel();
    m_film.reset();
    m_frame = QImage();
    update();
}

void IllustrationView::start()
{
    m_start.cancel();
    m_timer.cancel();
    m_film = m_open(m_name);
    if (!m_film)
        return stop();
    showNextFrame();
    if (m_film && m_motion == Motion::film)
        m_timer = m_queue.every(m_film->frameDuration(), [this] { showNextFrame(); });
}

void IllustrationView::showNextFrame()
{
    m_frame = m_film->nextFrame(aspectFill(m_film->size(), size() * devicePixelRatioF()));
    if (m_frame.isNull())
        return stop();
    update();
}

void IllustrationView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    // In a turn of its own: the window need not wait for the first frame.
    m_start = m_queue.after(std::chrono::nanoseconds(0), [this] { start(); });
}

void IllustrationView::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    stop();
}

void IllustrationView::paintEvent(QPaintEvent*)
{
    if (m_frame.isNull())
        return;
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    // A frame of before the last resize is scaled until the next one comes.
    const auto shown = QSizeF(m_frame.size()).scaled(size(), Qt::KeepAspectRatioByExpanding);
    const auto scale = shown.width() / m_frame.width();
    QBrush film(m_frame);
    film.setTransform(
        QTransform().translate((width() - shown.width()) / 2, (height() - shown.height()) / 2).scale(scale, scale));
    painter.setPen(Qt::NoPen);
    painter.setBrush(film);
    painter.drawRoundedRect(rect(), cornerRadius, cornerRadius);
}

} // namespace orrinvale
