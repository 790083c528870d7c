// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/AppRowDelegate.h"

#include "kit/Shapes.h"
#include "kit/Symbols.h"
#include "kit/TextLabel.h"
#include "kit/WindowText.h"
#include "orrinvale/AppPicker.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>

namespace orrinvale
{

namespace
{

constexpr auto leastHeight = 36;
constexpr auto heightInText = 30.0; // at a text scale of 1
constexpr auto radius = 6.0;
constexpr auto paddingLeft = 8;
constexpr auto paddingRight = 10;
constexpr auto iconSize = 24;
constexpr auto checkSize = 16;
constexpr auto gap = 10;
constexpr auto ringWidth = 2.0;

QFont nameFont(bool isChosen)
{
    return (isChosen ? windowText::mediumTitle : windowText::rowTitle).font();
}

QRectF centredSquare(int left, const QRect& row, int size)
{
    return QRectF(left, row.top() + (row.height() - size) / 2, size, size);
}

} // namespace

AppRowDelegate::AppRowDelegate(const AppPicker& picker, MainQueue& queue, QAbstractItemView& list)
    : QAbstractItemDelegate(&list), m_picker(picker), m_list(list), m_icons(queue, iconSize)
{
    m_icons.onLoaded = [this] { m_list.viewport()->update(); };
}

int AppRowDelegate::rowHeight()
{
    return std::max(leastHeight, withText(heightInText));
}

QSize AppRowDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const
{
    return {m_list.viewport()->width(), rowHeight()};
}

bool AppRowDelegate::isChosen(const QModelIndex& index) const
{
    return m_list.selectionModel()->isSelected(index);
}

int AppRowDelegate::nameWidth(const QRect& shown, bool isChosen) const
{
    return shown.width() - paddingLeft - iconSize - gap - paddingRight - (isChosen ? checkSize + gap : 0);
}

void AppRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const auto shown = shownPart(option.rect);
    paintGround(*painter, shown, option);
    paintIcon(*painter, shown, index);
    paintName(*painter, shown, index);
    if (isChosen(index))
        paintSymbol(*painter, QStringLiteral("checkmark.circle.fill"),
                    centredSquare(shown.right() + 1 - paddingRight - checkSize, shown, checkSize), m_colours.controlOn);
    if (m_showsCursor && index == m_list.currentIndex())
        strokeInside(*painter, shown, radius, ringWidth, m_colours.focusRing);
    painter->restore();
}

void AppRowDelegate::paintGround(QPainter& painter, const QRect& shown, const QStyleOptionViewItem& option) const
{
    const auto isSelected = option.state.testFlag(QStyle::State_Selected);
    if (!isSelected && !option.state.testFlag(QStyle::State_MouseOver))
        return;
    painter.setPen(Qt::NoPen);
    painter.setBrush(isSelected ? m_colours.selection : m_colours.rowHover);
    painter.drawRoundedRect(shown, radius, radius);
}

void AppRowDelegate::paintIcon(QPainter& painter, const QRect& shown, const QModelIndex& index) const
{
    const auto square = centredSquare(shown.left() + paddingLeft, shown, iconSize);
    const auto& icon = m_picker.app(static_cast<std::size_t>(index.row())).icon;
    if (!icon)
        return paintAppIcon(painter, square, {}, m_colours.tertiaryText);
    if (const auto* pixmap = m_icons.find(QString::fromStdString(*icon), painter.device()->devicePixelRatioF()))
        paintAppIcon(painter, square, *pixmap, m_colours.tertiaryText);
}

void AppRowDelegate::paintName(QPainter& painter, const QRect& shown, const QModelIndex& index) const
{
    const QRect place(shown.left() + paddingLeft + iconSize + gap, shown.top(), nameWidth(shown, isChosen(index)),
                      shown.height());
    painter.setFont(nameFont(isChosen(index)));
    painter.setPen(m_colours.primaryText);
    const auto text = painter.fontMetrics().elidedText(index.data().toString(), Qt::ElideRight, place.width());
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
}

// A name that is cut has the whole of it as its tooltip.
bool AppRowDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                               const QModelIndex& index)
{
    const auto name = index.data().toString();
    const QFontMetrics metrics(nameFont(isChosen(index)));
    const auto isCut =
        index.isValid() && metrics.horizontalAdvance(name) > nameWidth(shownPart(option.rect), isChosen(index));
    if (event->type() != QEvent::ToolTip || !isCut) {
        QToolTip::hideText();
        return false;
    }
    QToolTip::showText(event->globalPos(), plainToolTip(name), view, option.rect);
    return true;
}

} // namespace orrinvale
