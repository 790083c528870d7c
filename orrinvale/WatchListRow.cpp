// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/WatchListRow.h"

#include "kit/FocusRing.h"
#include "kit/TextLabel.h"
#include "kit/VisibleText.h"
#include "kit/WindowButton.h"
#include "kit/WindowText.h"
#include "orrinvale/SettingsRow.h"

#include <QKeyEvent>

#include <algorithm>

namespace orrinvale
{

namespace
{

constexpr auto leastHeight = 48;
constexpr auto iconSize = 28;
constexpr auto gap = 12;
constexpr auto paddingRight = 10; // the glyph, not the button, stands on the card's padding

} // namespace

WatchListRow::WatchListRow(const CustomProcess& process, QWidget* icon, QWidget* parent)
    : QWidget(parent), m_process(process), m_icon(icon), m_label(new TextLabel(this, Qt::ElideRight)),
      m_bundleID(new TextLabel(this, Qt::ElideMiddle)),
      m_deleteButton(new WindowButton(QStringLiteral("Delete"), WindowButton::Kind::icon, this))
{
    m_icon->setParent(this);
    m_label->setContent(visibleText(process.label));
    m_bundleID->setContent(visibleText(process.bundleID));
    m_deleteButton->setSymbol(QStringLiteral("trash"));
    m_deleteButton->setDangerous(true);
    m_deleteButton->setAccessibleName(QStringLiteral("Delete ") + m_label->text());
}

int WatchListRow::heightNeeded() const
{
    const auto text = windowText::body.line() + windowText::small.line();
    return std::max(leastHeight, text + 2 * settingsGrid::rowPadding);
}

void WatchListRow::applyTheme(const WindowPalette& colours)
{
    applyTextStyle(*m_label, windowText::body, colours.primaryText);
    applyTextStyle(*m_bundleID, windowText::small, colours.quietText);
    m_deleteButton->setColours(colours);
    auto iconPalette = m_icon->palette();
    iconPalette.setColor(QPalette::WindowText, colours.tertiaryText);
    m_icon->setPalette(iconPalette);
    layOut();
}

void WatchListRow::layOut()
{
    m_icon->setGeometry(settingsGrid::cardPadding, (height() - iconSize) / 2, iconSize, iconSize);
    const auto button = m_deleteButton->shownSize();
    const auto buttonLeft = width() - paddingRight - button.width();
    placeShown(*m_deleteButton, QRect(QPoint(buttonLeft, (height() - button.height()) / 2), button));
    const auto textLeft = settingsGrid::cardPadding + iconSize + gap;
    const auto textWidth = buttonLeft - gap - textLeft;
    const auto labelLine = windowText::body.line();
    const auto identifierLine = windowText::small.line();
    const auto top = (height() - labelLine - identifierLine) / 2;
    m_label->setGeometry(textLeft, top, textWidth, labelLine);
    m_bundleID->setGeometry(textLeft, top + labelLine, textWidth, identifierLine);
}

void WatchListRow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Delete)
        event->ignore();
    else if (!event->isAutoRepeat()) // held, it would delete the rows that follow
        m_deleteButton->click();
}

void WatchListRow::resizeEvent(QResizeEvent*)
{
    layOut();
}

} // namespace orrinvale
