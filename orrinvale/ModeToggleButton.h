// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "kit/Colours.h"
#include "kit/Look.h"
#include "kit/PaintedButton.h"

#include <functional>

namespace orrinvale
{

class TextLabel;

// One segment of the mode toggle; to assistive technology a radio button.
class ModeToggleButton final : public PaintedButton
{
    Q_OBJECT

public:
    struct Colours {
        QColor selectedColor = rgb(0.29, 0.55, 0.22);
        QColor textColor = rgb(0.45, 0.43, 0.40);
        QColor highlight;
        QColor focusRing;
        QColor focusGap;
    };

    ModeToggleButton(const QString& title, QWidget* parent);

    void setColours(const Colours& colours);
    void setSelected(bool isSelected);
    bool isSelected() const { return m_isSelected; }
    enum class Label { oneLine, wrapped };
    // The size is that of the font, in logical pixels.
    void setLabel(double pixels, Label label);
    QColor background() const;
    QColor textColour() const;
    QFont labelFont() const;

    std::function<void()> onTap;

protected:
    void paintEvent(QPaintEvent* event) override;
    // A click of the user must not change the state by itself: the control does.
    void nextCheckState() override {}

private:
    void tap();

    Colours m_colours;
    bool m_isSelected = false;
    double m_fontPixels = 12;
    Label m_label = Label::oneLine;
};

} // namespace orrinvale
