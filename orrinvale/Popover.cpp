// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/Popover.h"

#include "kit/Colours.h"
#include "kit/InlineToolTip.h"
#include "kit/Look.h"
#include "kit/OverlayScrollArea.h"
#include "kit/Shapes.h"
#include "layer_shell/LayerSurface.h"
#include "orrinvale/PopoverLayout.h"

#include <QBitmap>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>

#include <utility>

namespace orrinvale
{

namespace
{

constexpr auto cornerRadius = 12.0;
constexpr auto shadowWidth = 16;
constexpr auto shadowDrop = 4;      // how much lower than the popover its shadow lies
constexpr auto shadowAlpha = 0.028; // of each of its layers

// Qt gives a popup of X11 every click; on Wayland a popup that belongs to no window is an ordinary one.
bool hasPopupGrab()
{
    return !QGuiApplication::platformName().startsWith(QStringLiteral("wayland"));
}

QScreen* screenOf(const StatusItemAnchor& anchor)
{
    const auto point = anchor.icon ? anchor.icon->center() : anchor.pointer.value_or(QPoint());
    auto* screen = anchor.icon || anchor.pointer ? QGuiApplication::screenAt(point) : nullptr;
    return screen ? screen : QGuiApplication::primaryScreen();
}

constexpr auto popoverFlags = Qt::Popup | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint;

} // namespace

Popover::Popover(QWidget* content, const Colours& colours, Composition composition, AvailableGeometry availableGeometry)
    : QWidget(nullptr, popoverFlags), m_content(content), m_scrollArea(new OverlayScrollArea(this)), m_colours(colours),
      m_isComposited(composition == Composition::composited), m_shadow(m_isComposited ? shadowWidth : 0),
      m_availableGeometry(std::move(availableGeometry))
{
    setWindowTitle(QStringLiteral("orrinvale"));
    setAttribute(Qt::WA_TranslucentBackground, m_isComposited);
    m_scrollArea->setWidget(content);
    m_scrollArea->viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false);
    content->installEventFilter(this);
    setColours(colours);
}

Popover::~Popover() = default;

void Popover::setColours(const Colours& colours)
{
    m_colours = colours;
    const auto isDark = colours.background.lightness() < 128;
    m_scrollArea->setThumbColour(withAlpha(isDark ? Qt::white : Qt::black, isDark ? 0.28 : 0.26));
    update();
}

QRect Popover::body() const
{
    if (m_coversDesktop)
        return popoverInCorner(m_content->height(), rect());
    return rect().adjusted(m_shadow, m_shadow, -m_shadow, -m_shadow);
}

void Popover::fitHeight(int available)
{
    m_availableHeight = available;
    const auto height = popoverHeight(m_content->height(), available);
    setFixedSize(PopoverLayout::width + 2 * m_shadow, height + 2 * m_shadow);
    if (m_layer)
        m_layer->resize(size());
}

void Popover::showAt(const StatusItemAnchor& anchor)
{
    if (canAskForLayerSurface())
        openLayer(anchor);
    else if (hasPopupGrab())
        showInDesktop(anchor);
    else
        showOverDesktop();
}

void Popover::openLayer(const StatusItemAnchor& anchor)
{
    setWindowFlags(popoverFlags | Qt::BypassWindowManagerHint);
    auto* screen = screenOf(anchor);
    LayerRoom room{screen->geometry(), m_availableGeometry(*screen)};
    fitHeight(room.available.height());
    create();
    LayerSurface::Client client;
    client.refused = [this] { showOverDesktop(); };
    client.place = [this, anchor, room](const QSize& available) mutable {
        room.withoutLayers = available;
        auto placement = popoverLayerPlacement(anchor, m_content->height(), room);
        placement.size = placement.size.grownBy(QMargins() + m_shadow);
        placement.margins -= m_shadow;
        m_availableHeight = std::min(available.height(), room.available.height());
        setFixedSize(placement.size);
        return placement;
    };
    client.ready = [this] {
        new InlineToolTip(*this, body()); // Qt can put no window of another kind on top of the layer's
        present();
    };
    client.dismissed = [this] { end(Closing::elsewhere); };
    m_layer = openLayerSurface(*windowHandle(), anchor.pointer ? screen : nullptr, client);
}

void Popover::showInDesktop(const StatusItemAnchor& anchor)
{
    const auto* screen = screenOf(anchor);
    const auto available = m_availableGeometry(*screen);
    fitHeight(available.height());
    const auto position = popoverPosition(anchor, body().size(), screen->geometry(), available);
    move(position - body().topLeft());
    present();
}

// Where a client may neither choose its place nor hear of a click elsewhere, its window takes all that the panels
// leave, with nothing to be seen of it around the popover.
void Popover::showOverDesktop()
{
    m_coversDesktop = true;
    auto refused = std::move(m_layer); // which would be given back with the surface
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    m_layer = std::move(refused);
    setMinimumSize(0, 0);
    setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    setWindowState(Qt::WindowMaximized);
    present();
}

void Popover::present()
{
    show();
    raise();
    activateWindow();
    m_content->setFocus(Qt::PopupFocusReason);
}

// The place on the layer must be given back before Qt takes the surface itself away.
void Popover::setVisible(bool isVisible)
{
    if (!isVisible)
        m_layer.reset();
    QWidget::setVisible(isVisible);
}

void Popover::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    m_scrollArea->setGeometry(body());
    applyMask();
    update();
}

// Without a compositor nothing is translucent, and what lies outside the corners must not belong to the window.
void Popover::applyMask()
{
    if (m_isComposited)
        return;
    QBitmap mask(size());
    mask.fill(Qt::color0);
    QPainter painter(&mask);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::color1);
    painter.drawRoundedRect(body(), cornerRadius, cornerRadius);
    painter.end();
    setMask(mask);
}

void Popover::paintShadow(QPainter& painter)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(withAlpha(Qt::black, shadowAlpha));
    for (int spread = 1; spread < shadowWidth - shadowDrop; ++spread) {
        const auto layer = QRectF(body()).adjusted(-spread, -spread + shadowDrop, spread, spread + shadowDrop);
        painter.drawRoundedRect(layer, cornerRadius + spread, cornerRadius + spread);
    }
}

void Popover::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (m_isComposited)
        paintShadow(painter);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_colours.background);
    painter.drawRoundedRect(body(), cornerRadius, cornerRadius);
    strokeInside(painter, body(), cornerRadius, 1, m_colours.border);
    painter.end();
    Q_EMIT framePainted();
}

void Popover::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Escape)
        return QWidget::keyPressEvent(event);
    end(Closing::escape);
}

// What shines through the shadow is not the popover.
void Popover::mousePressEvent(QMouseEvent* event)
{
    if (body().contains(event->position().toPoint()))
        return QWidget::mousePressEvent(event);
    end(Closing::elsewhere);
}

void Popover::closeByOwner()
{
    end(Closing::owner);
}

// Also before it was given its place.
void Popover::end(Closing closing)
{
    m_closing = closing;
    m_layer.reset();
    if (isVisible())
        close();
    else
        tellClosed();
}

void Popover::tellClosed()
{
    if (onClose)
        std::exchange(onClose, nullptr)(m_closing);
}

void Popover::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    if (!event->spontaneous())
        tellClosed();
}

// Where a popup is an ordinary window, losing the focus is the click elsewhere.
bool Popover::event(QEvent* event)
{
    if (event->type() == QEvent::WindowDeactivate && isVisible() && !hasPopupGrab())
        end(Closing::elsewhere);
    if (event->type() == QEvent::WindowActivate && m_coversDesktop && m_layer)
        m_layer->watchKeyboard();
    return QWidget::event(event);
}

// Longer content makes a higher popover, up to its most.
bool Popover::eventFilter(QObject* object, QEvent* event)
{
    if (object == m_content && event->type() == QEvent::Resize && isVisible()) {
        if (m_coversDesktop)
            m_scrollArea->setGeometry(body());
        else
            fitHeight(m_availableHeight);
    }
    return QWidget::eventFilter(object, event);
}

} // namespace orrinvale
