// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "orrinvale/SettingsRow.h"

#include <QWidget>

namespace orrinvale
{

class ContinuousSlider;
class TextLabel;

// The slider of the settings with a word under each end.
class SensitivityRow final : public QWidget, public SettingsRow
{
    Q_OBJECT

public:
    explicit SensitivityRow(QWidget* parent);

    ContinuousSlider& slider() const { return *m_slider; }
    TextLabel& lowLabel() const { return *m_low; }
    TextLabel& highLabel() const { return *m_high; }

    QWidget& widget() override { return *this; }
    int heightFor(int width) const override;
    void applyTheme(const WindowPalette& colours) override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void layOut();

    ContinuousSlider* m_slider;
    TextLabel* m_low;
    TextLabel* m_high;
};

} // namespace orrinvale
