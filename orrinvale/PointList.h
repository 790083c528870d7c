// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "kit/WindowPalette.h"

#include <QWidget>

#include <span>
#include <vector>

namespace orrinvale
{

class TextLabel;

// Points of an argument, one below the other: a symbol on a badge, and title and body beside it.
class PointList final : public QWidget
{
    Q_OBJECT

public:
    struct Point {
        QString icon; // a symbol
        QString title;
        QString body;
    };

    PointList(std::span<const Point> points, QWidget* parent);

    void applyTheme(const WindowPalette& colours);
    int heightFor(int width) const;

    struct Labels {
        QString icon;
        TextLabel* title;
        TextLabel* body;
    };
    const std::vector<Labels>& labels() const { return m_labels; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    int pointHeight(const Labels& point, int width) const;
    void layOut();

    WindowPalette m_colours;
    std::vector<Labels> m_labels;
};

} // namespace orrinvale
