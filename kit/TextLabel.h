// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

namespace orrinvale
{

// A label of plain text in one colour. What does not fit is cut with an ellipsis where `elision` says and then has the
// whole text as its tooltip; with Qt::ElideNone it wraps instead when word wrap is on. Markup is never interpreted.
class TextLabel final : public QLabel
{
    Q_OBJECT

public:
    explicit TextLabel(QWidget* parent, Qt::TextElideMode elision = Qt::ElideNone);

    void setContent(const QString& text);
    void setStyle(const QFont& font, const QColor& colour);
    void setColour(const QColor& colour);
    QColor colour() const { return m_colour; }
    // From 0, invisible, to 1.
    void setOpacity(double opacity);
    double opacity() const { return m_opacity; }

    // The height that the text takes at `width`, in lines of `lineHeight`.
    int heightFor(int width, int lineHeight) const;
    // The width of the text on one line.
    int naturalWidth() const;
    // Lines are this far apart when the text wraps; 0 is the font's own distance.
    void setLineHeight(int pixels);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QStringList linesAt(int width) const;
    void updateToolTip();

    Qt::TextElideMode m_elision;
    QColor m_colour;
    double m_opacity = 1;
    int m_lineHeight = 0;
};

// A tooltip that shows the text as it is, whatever markup it may look like.
QString plainToolTip(const QString& text);

} // namespace orrinvale
