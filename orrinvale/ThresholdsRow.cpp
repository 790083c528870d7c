// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/ThresholdsRow.h"

#include "kit/TextLabel.h"
#include "kit/WindowPalette.h"
#include "kit/WindowText.h"

#include <algorithm>

namespace orrinvale
{

namespace
{

constexpr auto leastHeight = 36;
constexpr auto headToText = 4;

} // namespace

ThresholdsRow::ThresholdsRow(QWidget* parent)
    : QWidget(parent), m_head(new TextLabel(this)), m_text(new TextLabel(this, Qt::ElideRight))
{
    m_head->setWordWrap(false);
    m_head->setContent(QStringLiteral("Thresholds:"));
}

void ThresholdsRow::setText(const QString& thresholds)
{
    m_text->setContent(thresholds);
}

int ThresholdsRow::heightFor(int) const
{
    return std::max(leastHeight, windowText::small.line() + 2 * settingsGrid::rowPadding);
}

void ThresholdsRow::applyTheme(const WindowPalette& colours)
{
    applyTextStyle(*m_head, windowText::small, colours.quietText);
    applyTextStyle(*m_text, windowText::mediumSmall, colours.primaryText);
    layOut();
}

void ThresholdsRow::layOut()
{
    const auto headWidth = m_head->naturalWidth() + 1;
    const auto textLeft = settingsGrid::cardPadding + headWidth + headToText;
    m_head->setGeometry(settingsGrid::cardPadding, 0, headWidth, height());
    m_text->setGeometry(textLeft, 0, width() - settingsGrid::cardPadding - textLeft, height());
}

void ThresholdsRow::resizeEvent(QResizeEvent*)
{
    layOut();
}

} // namespace orrinvale
