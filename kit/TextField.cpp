// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "kit/TextField.h"

#include "kit/PaintedButton.h"
#include "kit/Shapes.h"
#include "kit/Symbols.h"

#include <QEvent>
#include <QLineEdit>
#include <QPainter>

#include <algorithm>

namespace orrinvale
{

namespace
{

constexpr auto ringReach = 1; // beyond the frame
constexpr auto ringWidth = 2.0;
constexpr auto radius = 8.0;
constexpr auto leastHeight = 32;
constexpr auto verticalPadding = 5;    // with the border
constexpr auto horizontalPadding = 11; // likewise
constexpr auto symbolSize = 14;
constexpr auto clearSize = 16;
constexpr auto clearArea = 24;
constexpr auto gap = 8;
constexpr auto lineMargin = 2; // that QLineEdit keeps to each side of its text

QRect frameOf(const QWidget& field)
{
    return field.rect().adjusted(ringReach, ringReach, -ringReach, -ringReach);
}

class ClearButton final : public PaintedButton
{
public:
    ClearButton(const WindowPalette& colours, QWidget* parent) : PaintedButton(parent), m_colours(colours) {}

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const auto inset = (clearArea - clearSize) / 2.0;
        const auto isLit = isHovered() || isDown();
        paintSymbol(painter, QStringLiteral("xmark.circle.fill"), QRectF(rect()).adjusted(inset, inset, -inset, -inset),
                    isLit ? m_colours.primaryText : m_colours.tertiaryText);
        if (showsFocusRing())
            strokeInside(painter, rect(), clearArea / 2.0, ringWidth, m_colours.focusRing);
    }

private:
    const WindowPalette& m_colours;
};

QPalette linePalette(const WindowPalette& colours)
{
    QPalette palette;
    palette.setColor(QPalette::Base, Qt::transparent);
    palette.setColor(QPalette::Text, colours.primaryText);
    palette.setColor(QPalette::PlaceholderText, colours.tertiaryText);
    palette.setColor(QPalette::Highlight, colours.selection);
    palette.setColor(QPalette::HighlightedText, colours.primaryText);
    return palette;
}

} // namespace

TextField::TextField(const QString& accessibleName, const TextStyle& style, QWidget* parent)
    : QWidget(parent), m_style(style), m_line(new QLineEdit(this))
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setCursor(Qt::IBeamCursor);
    setFocusProxy(m_line);
    m_line->setFrame(false);
    m_line->setAccessibleName(accessibleName);
    m_line->installEventFilter(this);
}

void TextField::setSymbol(const QString& name)
{
    m_symbol = name;
    layOut();
}

void TextField::addClearButton(const QString& accessibleName)
{
    m_clearButton = new ClearButton(m_colours, this);
    m_clearButton->setAccessibleName(accessibleName);
    m_clearButton->setCursor(Qt::ArrowCursor);
    m_clearButton->hide();
    QObject::connect(m_clearButton, &QAbstractButton::clicked, this, [this] { clear(); });
    QObject::connect(m_line, &QLineEdit::textChanged, m_clearButton,
                     [this](const QString& text) { m_clearButton->setVisible(!text.isEmpty()); });
    layOut();
}

// The focus goes before the button does, else it would go where the button's successor is.
void TextField::clear()
{
    m_line->setFocus();
    m_line->clear();
}

void TextField::applyTheme(const WindowPalette& colours)
{
    m_colours = colours;
    m_line->setPalette(linePalette(colours));
    m_line->setFont(m_style.font());
    update();
}

int TextField::shownHeight() const
{
    return std::max(leastHeight, m_style.line() + 2 * verticalPadding);
}

void TextField::placeFrame(const QRect& rect)
{
    setGeometry(rect.adjusted(-ringReach, -ringReach, ringReach, ringReach));
}

void TextField::layOut()
{
    auto text = frameOf(*this).adjusted(horizontalPadding - lineMargin, 1, lineMargin - horizontalPadding, -1);
    if (!m_symbol.isEmpty())
        text.setLeft(text.left() + symbolSize + gap);
    if (m_clearButton) {
        const auto right = frameOf(*this).right() - horizontalPadding + (clearArea - clearSize) / 2;
        m_clearButton->setGeometry(right - clearArea + 1, (height() - clearArea) / 2, clearArea, clearArea);
        text.setRight(m_clearButton->x() - gap / 2);
    }
    m_line->setGeometry(text);
}

void TextField::resizeEvent(QResizeEvent*)
{
    layOut();
}

void TextField::mousePressEvent(QMouseEvent*)
{
    m_line->setFocus(Qt::MouseFocusReason);
}

bool TextField::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
        update();
    return QWidget::eventFilter(object, event);
}

void TextField::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), m_colours.card);
    painter.setRenderHint(QPainter::Antialiasing);
    const auto frame = frameOf(*this);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_colours.field);
    painter.drawRoundedRect(frame, radius, radius);
    if (m_line->hasFocus())
        strokeInside(painter, rect(), radius + ringReach, ringWidth, m_colours.focusRing);
    else
        strokeInside(painter, frame, radius, 1, m_colours.controlBorder);
    const QRectF symbol(frame.left() + horizontalPadding, (height() - symbolSize) / 2, symbolSize, symbolSize);
    paintSymbol(painter, m_symbol, symbol, m_colours.tertiaryText);
}

} // namespace orrinvale
