// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/SensitivityRow.h"

#include "kit/ContinuousSlider.h"
#include "kit/FocusRing.h"
#include "kit/TextLabel.h"
#include "kit/WindowText.h"

namespace orrinvale
{

namespace
{

constexpr auto paddingTop = 16;
constexpr auto sliderToWords = 4;
constexpr auto paddingBottom = 12;
constexpr auto wordsTop = paddingTop + ContinuousSlider::shownHeight + sliderToWords;

} // namespace

SensitivityRow::SensitivityRow(QWidget* parent)
    : QWidget(parent), m_slider(new ContinuousSlider(this)), m_low(new TextLabel(this, Qt::ElideRight)),
      m_high(new TextLabel(this, Qt::ElideRight))
{
    m_slider->setAccessibleName(QStringLiteral("CPU SENSITIVITY"));
    m_low->setContent(QStringLiteral("Relaxed"));
    m_high->setContent(QStringLiteral("Sensitive"));
    m_high->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

int SensitivityRow::heightFor(int) const
{
    return wordsTop + windowText::small.line() + paddingBottom;
}

void SensitivityRow::applyTheme(const WindowPalette& colours)
{
    m_slider->setColours(colours);
    applyTextStyle(*m_low, windowText::small, colours.quietText);
    applyTextStyle(*m_high, windowText::small, colours.quietText);
    layOut();
}

void SensitivityRow::layOut()
{
    const auto left = settingsGrid::cardPadding;
    const auto inner = width() - 2 * left;
    placeShown(*m_slider, QRect(left, paddingTop, inner, ContinuousSlider::shownHeight));
    m_low->setGeometry(left, wordsTop, inner / 2, windowText::small.line());
    m_high->setGeometry(left + inner / 2, wordsTop, inner - inner / 2, windowText::small.line());
}

void SensitivityRow::resizeEvent(QResizeEvent*)
{
    layOut();
}

} // namespace orrinvale
