// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "kit/Sheet.h"

#include "base/MainQueue.h"
#include "kit/PaintedButton.h"
#include "kit/Shapes.h"
#include "platform/Appearance.h"

#include <QEvent>
#include <QGraphicsOpacityEffect>
#include <QPainter>

#include <algorithm>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

constexpr QSize roomAround(40, 48);
constexpr auto radius = 12.0;
constexpr auto fadeStep = 16ms;
constexpr auto fadeSteps = 10;

SoftShadow::Style shadowOf(Look look)
{
    if (look == Look::dark)
        return {12, 44, withAlpha(Qt::black, 0.60)};
    if (look == Look::sakura)
        return {12, 40, withAlpha(WindowPalette::of(look).primaryText, 0.24)};
    return {12, 40, withAlpha(Qt::black, 0.22)};
}

QColor faded(const QColor& colour, double opacity)
{
    return withAlpha(colour, double(colour.alphaF()) * opacity);
}

// So that a control shows its ring again if it had one.
Qt::FocusReason reasonToReturn(const QWidget* focused)
{
    const auto* button = qobject_cast<const PaintedButton*>(focused);
    return button && button->showsFocusRing() ? Qt::TabFocusReason : Qt::OtherFocusReason;
}

} // namespace

class Sheet::Card final : public QWidget
{
public:
    using QWidget::QWidget;
    QColor ground;

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(ground);
        painter.drawRoundedRect(rect(), radius, radius);
    }
};

Sheet::Sheet(MainQueue& mainQueue, const Appearance& appearance, const QSize& largestCard, QWidget* content)
    : QWidget(content), m_mainQueue(mainQueue), m_appearance(appearance), m_largestCard(largestCard),
      m_card(new Card(this)), m_focusBefore(content->window()->focusWidget()),
      m_focusReason(reasonToReturn(m_focusBefore))
{
    setAttribute(Qt::WA_NoMousePropagation);
    content->installEventFilter(this);
}

Sheet::~Sheet() = default;

QWidget& Sheet::card() const
{
    return *m_card;
}

void Sheet::present()
{
    setGeometry(parentWidget()->rect());
    m_card->setGeometry(cardRect());
    layOutCard();
    raise();
    show();
    fade(Fade::in);
}

void Sheet::dismiss()
{
    giveFocusBack();
    setAttribute(Qt::WA_TransparentForMouseEvents);
    fade(Fade::out);
}

void Sheet::giveFocusBack()
{
    if (m_focusBefore)
        m_focusBefore->setFocus(m_focusReason);
    else if (auto* focused = window()->focusWidget(); focused && isAncestorOf(focused))
        focused->clearFocus();
}

void Sheet::setLook(Look look)
{
    m_look = look;
    m_card->ground = WindowPalette::of(look).card;
    layOutCard();
    update();
}

QRect Sheet::cardRect() const
{
    const auto size = m_largestCard.boundedTo(this->size() - roomAround);
    return {QPoint((width() - size.width()) / 2, (height() - size.height()) / 2), size};
}

bool Sheet::eventFilter(QObject* object, QEvent* event)
{
    if (object == parent() && event->type() == QEvent::Resize)
        resize(parentWidget()->size());
    return QWidget::eventFilter(object, event);
}

void Sheet::resizeEvent(QResizeEvent*)
{
    m_card->setGeometry(cardRect());
    layOutCard();
}

void Sheet::fade(Fade direction)
{
    const auto isIn = direction == Fade::in;
    if (m_appearance.reducesMotion() || !isVisible())
        return showFade(isIn ? fadeSteps : 0);
    setOpacity(double(m_fadeStep) / fadeSteps);
    m_fade = m_mainQueue.every(fadeStep, [this, isIn] { showFade(m_fadeStep + (isIn ? 1 : -1)); });
}

void Sheet::showFade(int step)
{
    m_fadeStep = std::clamp(step, 0, fadeSteps);
    setOpacity(double(m_fadeStep) / fadeSteps);
    if (m_fadeStep > 0 && m_fadeStep < fadeSteps)
        return;
    m_fade.cancel();
    if (m_fadeStep == 0)
        deleteLater();
}

// What is on the card is painted through an effect while it is translucent only.
void Sheet::setOpacity(double opacity)
{
    m_opacity = opacity;
    if (opacity < 1) {
        if (!m_card->graphicsEffect())
            m_card->setGraphicsEffect(new QGraphicsOpacityEffect);
        static_cast<QGraphicsOpacityEffect*>(m_card->graphicsEffect())->setOpacity(opacity);
    } else {
        m_card->setGraphicsEffect(nullptr);
    }
    update();
}

void Sheet::paintEvent(QPaintEvent*)
{
    const auto& colours = WindowPalette::of(m_look);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), faded(colours.scrim, m_opacity));
    painter.setOpacity(m_opacity);
    m_shadow.paint(painter, m_card->geometry(), shadowOf(m_look));
    if (m_look == Look::dark) // where a shadow hardly shows
        strokeInside(painter, QRectF(m_card->geometry()).adjusted(-1, -1, 1, 1), radius + 1, 1, colours.buttonBorder);
}

} // namespace orrinvale
