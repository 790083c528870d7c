// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "kit/TextLabel.h"

#include "text/UnicodeText.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTextLayout>
#include <QTextOption>

#include <cmath>
#include <utility>

namespace orrinvale
{

namespace
{

constexpr char32_t emojiPresentation = 0xfe0f; // asks for the picture of the character before it

// The characters that are pictures, by themselves or because they ask for it. The toolkit takes them from the first
// font that has them, which may draw them as plain text; so they are given a font of pictures.
QList<QTextLayout::FormatRange> emojiRanges(const QString& text, QFont font)
{
    font.setFamilies({QStringLiteral("Noto Color Emoji"), QStringLiteral("emoji")});
    QTextCharFormat format;
    format.setFont(font);
    QList<QTextLayout::FormatRange> ranges;
    auto at = 0, previous = 0;
    for (const auto character : text.toUcs4()) {
        const auto length = QChar::requiresSurrogates(character) ? 2 : 1;
        if (character == emojiPresentation && at > 0)
            ranges.append({previous, at + length - previous, format});
        else if (isPicture(character))
            ranges.append({at, length, format});
        previous = std::exchange(at, at + length);
    }
    return ranges;
}

// On one line, in the middle of the rectangle's height.
void drawLine(QPainter& painter, const QRect& rect, Qt::Alignment alignment, const QString& text)
{
    const auto emoji = emojiRanges(text, painter.font());
    if (emoji.isEmpty())
        return painter.drawText(rect, static_cast<int>(Qt::TextSingleLine | Qt::AlignVCenter | alignment), text);
    QTextLayout layout(text, painter.font());
    layout.setFormats(emoji);
    layout.beginLayout();
    auto line = layout.createLine();
    line.setLineWidth(rect.width());
    layout.endLayout();
    const QFontMetricsF metrics(painter.font());
    const auto baseline = rect.top() + (rect.height() - metrics.height()) / 2 + metrics.ascent();
    layout.draw(&painter, QPointF(rect.left(), baseline - line.ascent()));
}

} // namespace

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
    // Measured as lines are broken: there an overhang of the last character counts, which is no part of its advance.
    QTextLayout layout(text(), font());
    QTextOption onOneLine;
    onOneLine.setWrapMode(QTextOption::NoWrap);
    layout.setTextOption(onOneLine);
    layout.beginLayout();
    auto line = layout.createLine();
    line.setLineWidth(0);
    layout.endLayout();
    return static_cast<int>(std::ceil(line.naturalTextWidth()));
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
        drawLine(painter, QRect(0, top, width(), step), alignment() & Qt::AlignHorizontal_Mask, line.trimmed());
        top += step;
    }
}

} // namespace orrinvale
