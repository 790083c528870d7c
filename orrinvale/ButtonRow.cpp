// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/ButtonRow.h"

#include "kit/FocusRing.h"
#include "kit/TextLabel.h"
#include "kit/WindowButton.h"
#include "orrinvale/RowText.h"

#include <algorithm>

namespace orrinvale
{

ButtonRow::ButtonRow(const QString& title, const QString& subtitle, const QString& button, QWidget* parent,
                     Qt::TextElideMode subtitleElision)
    : QWidget(parent), m_text(new RowText(title, subtitle, this, subtitleElision)),
      m_button(new WindowButton(button, WindowButton::Kind::ordinary, this))
{
    m_button->setAccessibleDescription(title);
}

int ButtonRow::textWidth(int width) const
{
    return width - 2 * settingsGrid::cardPadding - settingsGrid::textToControl - m_button->shownSize().width();
}

int ButtonRow::heightFor(int width) const
{
    const auto content = std::max(m_text->heightFor(textWidth(width)), m_button->shownSize().height());
    return std::max(settingsGrid::leastRow, content + 2 * settingsGrid::rowPadding);
}

void ButtonRow::applyTheme(const WindowPalette& colours)
{
    m_text->applyTheme(colours);
    m_button->setColours(colours);
    layOut();
}

void ButtonRow::layOut()
{
    const auto size = m_button->shownSize();
    placeShown(*m_button, QRect(width() - settingsGrid::cardPadding - size.width(), (height() - size.height()) / 2,
                                size.width(), size.height()));
    const auto textHeight = m_text->heightFor(textWidth(width()));
    m_text->setGeometry(settingsGrid::cardPadding, (height() - textHeight) / 2, textWidth(width()), textHeight);
}

void ButtonRow::resizeEvent(QResizeEvent*)
{
    layOut();
}

} // namespace orrinvale
