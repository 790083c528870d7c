// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "orrinvale/SettingsRow.h"

#include <QWidget>

namespace orrinvale
{

class RowText;
class WindowButton;

// A row of the settings with a button at its end.
class ButtonRow final : public QWidget, public SettingsRow
{
    Q_OBJECT

public:
    ButtonRow(const QString& title, const QString& subtitle, const QString& button, QWidget* parent,
              Qt::TextElideMode subtitleElision = Qt::ElideNone);

    RowText& text() const { return *m_text; }
    WindowButton& button() const { return *m_button; }
    QWidget& widget() override { return *this; }
    int heightFor(int width) const override;
    void applyTheme(const WindowPalette& colours) override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    int textWidth(int width) const;
    void layOut();

    RowText* m_text;
    WindowButton* m_button;
};

} // namespace orrinvale
