// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "kit/WindowPalette.h"
#include "orrinvale/CustomProcess.h"
#include "orrinvale/SettingsRow.h"

#include <QWidget>

#include <functional>
#include <vector>

namespace orrinvale
{

class TextLabel;
class WatchListRow;
class WindowButton;

// The user's watch list in its card: a row per application or a word that there is none, and the button to add one.
class WatchListView final : public QWidget, public SettingsRow
{
    Q_OBJECT

public:
    using MakeIcon = std::function<QWidget*(const std::string& bundleID)>;

    WatchListView(MakeIcon makeIcon, QWidget* parent);

    // An unchanged list leaves the rows, and the focus in them, alone.
    void setProcesses(const std::vector<CustomProcess>& processes);

    std::function<void(const UUID& id)> onDelete;
    // Called when `heightFor` has changed.
    std::function<void()> onHeightChange;

    const std::vector<WatchListRow*>& rows() const { return m_rows; }
    TextLabel& emptyLabel() const { return *m_emptyLabel; }
    TextLabel& hintLabel() const { return *m_hintLabel; }
    WindowButton& addButton() const { return *m_addButton; }

    QWidget& widget() override { return *this; }
    int heightFor(int width) const override;
    void applyTheme(const WindowPalette& colours) override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    WatchListRow* makeRow(const CustomProcess& process);
    int listHeight() const;
    void orderFocus();
    void moveFocusFrom(std::size_t deletedRow, Qt::FocusReason reason);
    void layOut();
    void layOutEmpty();

    MakeIcon m_makeIcon;
    std::vector<WatchListRow*> m_rows;
    TextLabel* m_emptyLabel;
    TextLabel* m_hintLabel;
    WindowButton* m_addButton;
    WindowPalette m_colours;
};

} // namespace orrinvale
