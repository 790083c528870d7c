// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "kit/WindowPalette.h"

#include <QWidget>

#include <vector>

namespace orrinvale
{

class SettingsRow;
class TextLabel;

// A section of the settings: a head in capitals, perhaps a caption, and a card with rows between hairlines.
class SettingsSection final : public QWidget
{
    Q_OBJECT

public:
    // No caption when it is empty.
    SettingsSection(const QString& head, const QString& caption, QWidget* parent);

    // The row's widget becomes the section's child.
    void addRow(SettingsRow* row);
    void applyTheme(const WindowPalette& colours);
    int heightFor(int width) const;

    TextLabel& headLabel() const { return *m_head; }
    TextLabel& captionLabel() const { return *m_caption; }
    bool hasCaption() const { return m_hasCaption; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    int cardTop(int width) const;
    void layOut();

    TextLabel* m_head;
    TextLabel* m_caption;
    bool m_hasCaption;
    std::vector<SettingsRow*> m_rows;
    WindowPalette m_colours;
};

} // namespace orrinvale
