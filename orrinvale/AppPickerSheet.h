// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "kit/Sheet.h"
#include "orrinvale/AppPicker.h"

namespace orrinvale
{

class AppPickerList;
class TextField;
class TextLabel;
class WindowButton;

// The sheet in which the user picks an application to watch and gives it a label. Made each time it is shown; the
// keyboard stays in it until it is dismissed, which the end of its window does too. Main thread.
class AppPickerSheet final : public Sheet
{
    Q_OBJECT

public:
    // Covers `content`. The locale is that of sorting and searching.
    AppPickerSheet(const Platform& platform, std::string locale, Look look, QWidget* content);

    std::function<void(CustomProcess)> onAdd;
    // Nothing is to be expected of the sheet after it.
    std::function<void()> onDismiss;

    void applyTheme(Look look);

    AppPicker& picker() { return m_picker; }
    TextLabel& headLabel() const { return *m_head; }
    TextField& searchField() const { return *m_search; }
    AppPickerList& list() const { return *m_list; }
    TextLabel& labelCaption() const { return *m_labelCaption; }
    TextField& labelField() const { return *m_label; }
    WindowButton& cancelButton() const { return *m_cancel; }
    WindowButton& addButton() const { return *m_add; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void hideEvent(QHideEvent* event) override;

private:
    void buildControls();
    void connectControls();
    void search(const QString& text);
    void choose(std::size_t row);
    std::vector<QWidget*> focusStops() const;
    void layOutCard() override;

    AppPicker m_picker;
    TextLabel* m_head;
    TextField* m_search;
    AppPickerList* m_list;
    TextLabel* m_labelCaption;
    TextField* m_label;
    WindowButton* m_cancel;
    WindowButton* m_add;
};

} // namespace orrinvale
