// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "orrinvale/PointList.h"

#include <QWidget>

#include <array>
#include <functional>

namespace orrinvale
{

class OverlayScrollArea;
class TextLabel;
class WindowButton;

// What the application tells before its first use: three points and the button that ends it.
class OnboardingView final : public QWidget
{
    Q_OBJECT

public:
    static const std::array<PointList::Point, 3>& points();

    OnboardingView();

    void applyTheme(Look look);

    // Called when the user pressed the button.
    std::function<void()> onDone;

    TextLabel& headingLabel() const { return *m_heading; }
    TextLabel& introductionLabel() const { return *m_introduction; }
    WindowButton& button() const { return *m_button; }
    OverlayScrollArea& scrollArea() const { return *m_scrollArea; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void layOut();
    void placeFade();

    const WindowPalette* m_colours;
    TextLabel* m_heading;
    TextLabel* m_introduction;
    OverlayScrollArea* m_scrollArea;
    PointList* m_points;
    QWidget* m_fade; // over the last points that show
    WindowButton* m_button;
};

} // namespace orrinvale
