// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/SettingsSection.h"

#include "kit/Shapes.h"
#include "kit/TextLabel.h"
#include "kit/WindowText.h"
#include "orrinvale/SettingsRow.h"

#include <QPainter>

namespace orrinvale
{

namespace
{

constexpr auto headToCaption = 2;
constexpr auto textToCard = 8;
constexpr auto outline = 1;
constexpr auto hairline = 1;

} // namespace

SettingsSection::SettingsSection(const QString& head, const QString& caption, QWidget* parent)
    : QWidget(parent), m_head(new TextLabel(this)), m_caption(new TextLabel(this)), m_hasCaption(!caption.isEmpty())
{
    m_head->setContent(head);
    m_caption->setContent(caption);
    m_caption->setVisible(m_hasCaption);
}

void SettingsSection::addRow(SettingsRow* row)
{
    row->widget().setParent(this);
    m_rows.push_back(row);
}

void SettingsSection::applyTheme(const WindowPalette& colours)
{
    m_colours = colours;
    applyTextStyle(*m_head, windowText::sectionHead, colours.quietText);
    applyTextStyle(*m_caption, windowText::subtitle, colours.quietText);
    for (auto* row : m_rows)
        row->applyTheme(colours);
    layOut();
    update();
}

int SettingsSection::cardTop(int width) const
{
    const auto head = m_head->heightFor(width, windowText::sectionHead.line());
    const auto caption = m_hasCaption ? headToCaption + m_caption->heightFor(width, windowText::subtitle.line()) : 0;
    return head + caption + textToCard;
}

int SettingsSection::heightFor(int width) const
{
    auto height = cardTop(width) + 2 * outline + hairline * (static_cast<int>(m_rows.size()) - 1);
    for (const auto* row : m_rows)
        height += row->heightFor(width - 2 * outline);
    return height;
}

void SettingsSection::layOut()
{
    const auto head = m_head->heightFor(width(), windowText::sectionHead.line());
    m_head->setGeometry(0, 0, width(), head);
    m_caption->setGeometry(0, head + headToCaption, width(),
                           m_caption->heightFor(width(), windowText::subtitle.line()));
    auto top = cardTop(width()) + outline;
    for (auto* row : m_rows) {
        const auto height = row->heightFor(width() - 2 * outline);
        row->widget().setGeometry(outline, top, width() - 2 * outline, height);
        top += height + hairline;
    }
}

void SettingsSection::resizeEvent(QResizeEvent*)
{
    layOut();
}

void SettingsSection::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const auto top = cardTop(width());
    paintCard(painter, QRectF(0, top, width(), height() - top), m_colours.card, m_colours.border);
    for (std::size_t i = 1; i < m_rows.size(); ++i) {
        const auto y = m_rows[i]->widget().y() - hairline;
        const auto left = settingsGrid::cardPadding + outline;
        painter.fillRect(QRect(left, y, width() - outline - left, hairline), m_colours.border);
    }
}

} // namespace orrinvale
