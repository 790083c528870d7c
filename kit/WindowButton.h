// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "kit/PaintedButton.h"
#include "kit/WindowPalette.h"
#include "kit/WindowText.h"

namespace orrinvale
{

// The push button of the windows. It shows itself inside room for a focus ring; see FocusRing.h.
class WindowButton final : public PaintedButton
{
    Q_OBJECT

public:
    enum class Kind {
        ordinary,
        filled, // the default one
        icon    // a symbol without a frame
    };

    WindowButton(const QString& text, Kind kind, QWidget* parent);

    void setColours(const WindowPalette& colours);
    void setSymbol(const QString& name, int size = 14);
    void setTextStyle(const TextStyle& style);
    // Turns to the colours of danger on hover and press.
    void setDangerous(bool isDangerous) { m_isDangerous = isDangerous; }
    void setRadius(int radius) { m_radius = radius; }
    // What it shows of itself, without the room for the ring.
    QSize shownSize() const;

    Kind kind() const { return m_kind; }
    QString symbol() const { return m_symbol; }
    QColor ground() const;
    QColor ink() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool hitButton(const QPoint& position) const override;

private:
    bool isThreatening() const { return m_isDangerous && isEnabled() && (isHovered() || isDown()); }
    QColor outline() const;
    void paintShown(QPainter& painter) const;
    void paintContent(QPainter& painter, const QRectF& shown) const;

    Kind m_kind;
    QString m_symbol;
    int m_symbolSize = 14;
    int m_radius = 7;
    bool m_isDangerous = false;
    TextStyle m_style;
    WindowPalette m_colours;
};

} // namespace orrinvale
