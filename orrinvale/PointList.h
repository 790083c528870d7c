// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "orrinvale/OnboardingView.h"

namespace orrinvale
{

// The points of the onboarding, one below the other: a symbol on a badge, and title and body beside it.
class PointList final : public QWidget
{
    Q_OBJECT

public:
    explicit PointList(QWidget* parent);

    void applyTheme(const WindowPalette& colours);
    int heightFor(int width) const;

    struct Labels {
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
