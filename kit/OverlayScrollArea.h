// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QScrollArea>

namespace orrinvale
{

class OverlayThumb;

// A vertical scroll area whose thumb lies over the content, takes no width, and shows while it is scrolled. What gets
// the keyboard focus is scrolled into view.
class OverlayScrollArea final : public QScrollArea
{
    Q_OBJECT

public:
    explicit OverlayScrollArea(QWidget* parent);

    void setThumbColour(const QColor& colour);

protected:
    bool focusNextPrevChild(bool next) override;

private:
    OverlayThumb* m_thumb;
};

} // namespace orrinvale
