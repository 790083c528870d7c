// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "kit/WindowPalette.h"
#include "orrinvale/AppIcons.h"

#include <QAbstractItemDelegate>

class QAbstractItemView;

namespace orrinvale
{

class AppPicker;

// Paints the rows of an application picker's list: icon, name, and a check mark for the chosen one.
class AppRowDelegate final : public QAbstractItemDelegate
{
    Q_OBJECT

public:
    // The room around the rows of a list with its frame.
    static constexpr int inset = 5;
    static constexpr int insetRight = 15; // the thumb's

    AppRowDelegate(const AppPicker& picker, MainQueue& queue, QAbstractItemView& list);

    void setColours(const WindowPalette& colours) { m_colours = colours; }
    // Whether a ring is around the list's current row.
    void setShowsCursor(bool shows) { m_showsCursor = shows; }

    static int rowHeight();
    // What a row shows of itself.
    static QRect shownPart(const QRect& row) { return row.adjusted(inset, 0, -insetRight, 0); }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

private:
    void paintGround(QPainter& painter, const QRect& shown, const QStyleOptionViewItem& option) const;
    void paintIcon(QPainter& painter, const QRect& shown, const QModelIndex& index) const;
    void paintName(QPainter& painter, const QRect& shown, const QModelIndex& index) const;
    bool isChosen(const QModelIndex& index) const;
    int nameWidth(const QRect& shown, bool isChosen) const;

    const AppPicker& m_picker;
    QAbstractItemView& m_list;
    WindowPalette m_colours;
    mutable AppIcons m_icons;
    bool m_showsCursor = false;
};

} // namespace orrinvale
