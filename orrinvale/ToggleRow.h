// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "kit/PaintedButton.h"
#include "kit/WindowPalette.h"
#include "orrinvale/SettingsRow.h"

#include <functional>

class QVariantAnimation;

namespace orrinvale
{

class RowText;

// A row of the settings with a switch at its end; a click anywhere on the row turns it.
class ToggleRow final : public PaintedButton, public SettingsRow
{
    Q_OBJECT

public:
    ToggleRow(const QString& title, const QString& subtitle, QWidget* parent);

    // Shows the switch so; `onToggle` hears nothing of it.
    void setOn(bool isOn);
    bool isOn() const { return isChecked(); }
    void setSubtitle(const QString& subtitle);
    void setAnimated(bool isAnimated) { m_isAnimated = isAnimated; }

    // Called with the new value when the user turned the switch.
    std::function<void(bool)> onToggle;

    RowText& text() const { return *m_text; }
    QRect switchRect() const;
    QWidget& widget() override { return *this; }
    int heightFor(int width) const override;
    void applyTheme(const WindowPalette& colours) override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void moveKnob();
    void layOut();

    RowText* m_text;
    WindowPalette m_colours;
    QVariantAnimation* m_animation;
    double m_position = 0; // of the knob: 0 off … 1 on
    bool m_isAnimated = true;
};

} // namespace orrinvale
