// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/TextLabel.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTextLayout>

#include <cmath>

namespace orrinvale
{

QString plainToolTip(const QString& text)
{
    return QStringLiteral("<qt>%1</qt>").arg(text.toHtmlEscaped());
}

TextLabel::TextLabel(QWidget* parent, Qt::TextElideMode elision) : QLabel(parent), m_elision(elision)
{
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    setWordWrap(elision == Qt::ElideNone);
}

void TextLabel::setContent(const QString& text)
{
    setText(text);
    setAccessibleName(text);
    updateToolTip();
}

void TextLabel::setStyle(const QFont& font, const QColor& colour)
{
    setFont(font);
    setColour(colour);
    updateToolTip();
}

void TextLabel::setColour(const QColor& colour)
{
    m_colour = colour;
    update();
}

void TextLabel::setOpacity(double opacity)
{
    m_opacity = opacity;
    update();
}

void TextLabel::setLineHeight(int pixels)
{
    m_lineHeight = pixels;
    update();
}

QStringList TextLabel::linesAt(int width) const
{
    if (!wordWrap())
        return {QFontMetricsF(font()).elidedText(text(), m_elision, width)};
    QStringList lines;
    for (const auto& paragraph : text().split(QLatin1Char('\n'))) {
        QTextLayout layout(paragraph, font());
        layout.beginLayout();
        for (auto line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLineWidth(width);
            lines += paragraph.mid(line.textStart(), line.textLength());
        }
        layout.endLayout();
    }
    return lines.isEmpty() ? QStringList{QString()} : lines;
}

int TextLabel::heightFor(int width, int lineHeight) const
{
    return static_cast<int>(linesAt(width).size()) * lineHeight;
}

int TextLabel::naturalWidth() const
{
    return static_cast<int>(std::ceil(QFontMetricsF(font()).horizontalAdvance(text())));
}

void TextLabel::updateToolTip()
{
    const auto isCut = !wordWrap() && m_elision != Qt::ElideNone && naturalWidth() > width();
    setToolTip(isCut ? plainToolTip(text()) : QString());
}

void TextLabel::resizeEvent(QResizeEvent* event)
{
    QLabel::resizeEvent(event);
    updateToolTip();
}

void TextLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setFont(font());
    painter.setPen(m_colour);
    painter.setOpacity(m_opacity);
    const auto lines = linesAt(width());
    const auto step = m_lineHeight > 0 ? m_lineHeight : fontMetrics().height();
    auto top = (alignment() & Qt::AlignTop) ? 0 : (height() - step * static_cast<int>(lines.size())) / 2;
    for (const auto& line : lines) {
        painter.drawText(QRect(0, top, width(), step),
                         Qt::TextSingleLine | Qt::AlignVCenter | (alignment() & Qt::AlignHorizontal_Mask),
                         line.trimmed());
        top += step;
    }
}

} // namespace orrinvale
