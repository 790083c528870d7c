// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "orrinvale/SettingsRow.h"

#include <QWidget>

namespace orrinvale
{

class TextLabel;

// The line of the settings that says what the sensitivity comes to.
class ThresholdsRow final : public QWidget, public SettingsRow
{
    Q_OBJECT

public:
    explicit ThresholdsRow(QWidget* parent);

    void setText(const QString& thresholds);
    TextLabel& headLabel() const { return *m_head; }
    TextLabel& textLabel() const { return *m_text; }

    QWidget& widget() override { return *this; }
    int heightFor(int width) const override;
    void applyTheme(const WindowPalette& colours) override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void layOut();

    TextLabel* m_head;
    TextLabel* m_text;
};

} // namespace orrinvale
