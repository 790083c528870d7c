// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "kit/WindowPalette.h"
#include "orrinvale/CustomProcess.h"

#include <QWidget>

namespace orrinvale
{

class TextLabel;
class WindowButton;

// One application of the watch list: icon, label over identifier, and a button that removes it, which the Delete key
// presses too.
class WatchListRow final : public QWidget
{
    Q_OBJECT

public:
    // `icon` becomes the row's child.
    WatchListRow(const CustomProcess& process, QWidget* icon, QWidget* parent);

    const CustomProcess& process() const { return m_process; }
    TextLabel& labelLabel() const { return *m_label; }
    TextLabel& bundleIDLabel() const { return *m_bundleID; }
    WindowButton& deleteButton() const { return *m_deleteButton; }
    int heightNeeded() const;
    void applyTheme(const WindowPalette& colours);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void layOut();

    CustomProcess m_process;
    QWidget* m_icon;
    TextLabel* m_label;
    TextLabel* m_bundleID;
    WindowButton* m_deleteButton;
};

} // namespace orrinvale
