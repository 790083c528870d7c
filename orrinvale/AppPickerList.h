// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "kit/WindowPalette.h"

#include <QListView>

#include <functional>
#include <optional>

namespace orrinvale
{

class AppPicker;
class AppRowDelegate;
class MainQueue;
class OverlayThumb;
class TextLabel;

// The rows of the application picker, or a word on their coming. The arrow keys move a cursor, which chooses nothing;
// Space, Return and a click choose.
class AppPickerList final : public QListView
{
    Q_OBJECT

public:
    AppPickerList(const AppPicker& picker, MainQueue& queue, QWidget* parent);

    std::function<void(std::size_t row)> onChoose;
    std::function<void()> onAdd;   // Return on the chosen row
    std::function<void()> onLeave; // up from the first row

    void applyTheme(const WindowPalette& colours);
    // After the picker's rows changed, or its choice.
    void showRows();
    void showChoice();
    // By keyboard: the cursor stands on the chosen row, else on the first one.
    void enter();

    // What a row shows of itself.
    QRect rowRect(std::size_t row) const;
    // nullopt when it stands nowhere.
    std::optional<std::size_t> cursor() const;
    TextLabel& loadingLabel() const { return *m_loadingLabel; }
    OverlayThumb& thumb() const { return *m_thumb; }

    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

protected:
    int verticalOffset() const override;
    void updateGeometries() override;
    void scrollContentsBy(int dx, int dy) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    class Model;

    QModelIndex indexOf(std::size_t row) const;
    std::optional<int> rowFor(int key) const;
    void setCursorRow(int row);
    void showCursor(bool shows);
    void choose(const QModelIndex& index);
    void chooseOrAdd();

    const AppPicker& m_picker;
    Model* m_model;
    AppRowDelegate* m_delegate;
    OverlayThumb* m_thumb;
    TextLabel* m_loadingLabel;
    WindowPalette m_colours;
};

} // namespace orrinvale
