// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "kit/WindowPalette.h"
#include "kit/WindowText.h"

#include <QWidget>

class QLineEdit;

namespace orrinvale
{

class PaintedButton;

// A text field on a card: a frame, which becomes a ring while the field has the focus, around a line to edit, perhaps
// with a symbol before it and a button behind it that clears it.
class TextField final : public QWidget
{
    Q_OBJECT

public:
    TextField(const QString& accessibleName, const TextStyle& style, QWidget* parent);

    void setSymbol(const QString& name);
    // The button shows while there is text.
    void addClearButton(const QString& accessibleName);
    void applyTheme(const WindowPalette& colours);
    // Of the frame, with the present font.
    int shownHeight() const;
    // So that the frame covers `rect`; the ring reaches one pixel further.
    void placeFrame(const QRect& rect);

    QLineEdit& line() const { return *m_line; }
    // nullptr without one.
    PaintedButton* clearButton() const { return m_clearButton; }
    QString symbol() const { return m_symbol; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void clear();
    void layOut();

    TextStyle m_style;
    QString m_symbol;
    WindowPalette m_colours;
    QLineEdit* m_line;
    PaintedButton* m_clearButton = nullptr;
};

} // namespace orrinvale
