// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "kit/PaintedButton.h"

#include <functional>

namespace orrinvale
{

class TextLabel;

// One row of the popover: a symbol on a badge, a title, a subtitle and a chevron. The title is its accessible name, the
// subtitle its description.
class MenuRowButton final : public PaintedButton
{
    Q_OBJECT

public:
    struct Colours {
        QColor iconColor;
        QColor tint;
        QColor bgColor;
        QColor separatorColor;
        QColor primary;
        QColor secondary;
        QColor chevron;
        QColor focusRing;
        QColor highlight;
    };
    enum class Line { none, above }; // the hairline to the row before

    MenuRowButton(const QString& title, const QString& subtitle, const QString& symbol, Line line, QWidget* parent);

    void setColours(const Colours& colours);
    // Draws in the corners that the group's outline rounds off; 0 for none.
    void setCornerRadii(double top, double bottom);
    // Of text and badge.
    void setScale(double scale);
    // What the row needs at this width; a multiple of 4.
    int heightFor(int width) const;
    // The ground as it is now: the row's own, or the highlight over it.
    QColor background() const;

    QString symbol() const { return m_symbol; }
    const Colours& colours() const { return m_colours; }
    TextLabel& titleLabel() const { return *m_titleLabel; }
    TextLabel& subtitleLabel() const { return *m_subtitleLabel; }

    // Called with the row when it is clicked.
    std::function<void(MenuRowButton&)> action;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    int badgeSize() const;
    int textLeft() const;
    int textWidth(int width) const;
    int textHeight(int width) const;
    void layOut();
    void paintGround(QPainter& painter);

    QString m_symbol;
    Line m_line;
    Colours m_colours;
    double m_topRadius = 0;
    double m_bottomRadius = 0;
    double m_scale = 1;
    TextLabel* m_titleLabel;
    TextLabel* m_subtitleLabel;
};

} // namespace orrinvale
