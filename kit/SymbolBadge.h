// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QWidget>

namespace orrinvale
{

// A symbol in the middle of a rounded square. Decoration: it takes no input and says nothing to assistive technology.
class SymbolBadge final : public QWidget
{
    Q_OBJECT

public:
    // `symbolPoints` is the size of the symbol in logical pixels.
    SymbolBadge(double cornerRadius, double symbolPoints, QWidget* parent);

    // No symbol is painted when the name is unknown.
    void setSymbol(const QString& name);
    void setColours(const QColor& ground, const QColor& symbol);
    void setSymbolPoints(double points);
    void setCornerRadius(double radius);
    void setOpacity(double opacity);
    QString symbol() const { return m_symbol; }
    QColor ground() const { return m_ground; }
    double cornerRadius() const { return m_cornerRadius; }
    double symbolPoints() const { return m_symbolPoints; }
    double opacity() const { return m_opacity; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    double m_cornerRadius;
    double m_symbolPoints;
    QString m_symbol;
    QColor m_ground;
    QColor m_symbolColour;
    double m_opacity = 1;
};

} // namespace orrinvale
