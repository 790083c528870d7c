// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/RowText.h"

#include "kit/TextLabel.h"
#include "kit/WindowPalette.h"
#include "kit/WindowText.h"

namespace orrinvale
{

RowText::RowText(const QString& title, const QString& subtitle, QWidget* parent, Qt::TextElideMode subtitleElision)
    : QWidget(parent), m_title(new TextLabel(this)), m_subtitle(new TextLabel(this, subtitleElision))
{
    m_title->setContent(title);
    m_subtitle->setContent(subtitle);
    m_title->setAttribute(Qt::WA_TransparentForMouseEvents);
    if (subtitleElision == Qt::ElideNone) // else its tooltip tells the rest
        m_subtitle->setAttribute(Qt::WA_TransparentForMouseEvents);
}

void RowText::setSubtitle(const QString& subtitle)
{
    m_subtitle->setContent(subtitle);
    layOut();
}

void RowText::applyTheme(const WindowPalette& colours)
{
    applyTextStyle(*m_title, windowText::rowTitle, colours.primaryText);
    applyTextStyle(*m_subtitle, windowText::subtitle, colours.quietText);
    layOut();
}

int RowText::heightFor(int width) const
{
    return m_title->heightFor(width, windowText::rowTitle.line()) +
           m_subtitle->heightFor(width, windowText::subtitle.line());
}

void RowText::layOut()
{
    const auto title = m_title->heightFor(width(), windowText::rowTitle.line());
    m_title->setGeometry(0, 0, width(), title);
    m_subtitle->setGeometry(0, title, width(), m_subtitle->heightFor(width(), windowText::subtitle.line()));
}

void RowText::resizeEvent(QResizeEvent*)
{
    layOut();
}

} // namespace orrinvale
