// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace orrinvale
{

// Paints the last pixels of a window at scale factors like 1.0417. Qt before 6.8 rounds the factor down where it clips
// what widgets paint, but not where it sizes the window, so that a column or a row of pixels may stay black. It repeats
// the pixels beside them. The last child of the window, which keeps it as large as itself.
// https://doc.qt.io/qt-6/highdpi.html
class WindowEdge final : public QWidget
{
    Q_OBJECT

public:
    explicit WindowEdge(QWidget* window);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
};

} // namespace orrinvale
