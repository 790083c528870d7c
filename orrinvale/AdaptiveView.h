// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QWidget>

#include <functional>

namespace orrinvale
{

// A plain area of one colour, which is asked for anew at every painting and so follows the appearance.
class AdaptiveView final : public QWidget
{
    Q_OBJECT

public:
    AdaptiveView(std::function<QColor()> colorProvider, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::function<QColor()> m_colorProvider;
};

} // namespace orrinvale
