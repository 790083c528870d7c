// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/WatchListView.h"

#include "kit/FocusRing.h"
#include "kit/TextLabel.h"
#include "kit/WindowButton.h"
#include "kit/WindowText.h"
#include "orrinvale/WatchListRow.h"

#include <QPainter>

#include <algorithm>

namespace orrinvale
{

namespace
{

constexpr auto hairline = 1;
constexpr auto rowLineLeft = 56; // behind the icon
constexpr auto emptyPadding = 20;
constexpr auto emptyToHint = 4;
constexpr auto hintOpacity = 0.7;
constexpr auto addPadding = 10;
constexpr auto plusSize = 12;

} // namespace

WatchListView::WatchListView(MakeIcon makeIcon, QWidget* parent)
    : QWidget(parent), m_makeIcon(std::move(makeIcon)), m_emptyLabel(new TextLabel(this)),
      m_hintLabel(new TextLabel(this)),
      m_addButton(new WindowButton(QStringLiteral("Add App…"), WindowButton::Kind::ordinary, this))
{
    m_emptyLabel->setContent(QStringLiteral("No custom apps yet"));
    m_hintLabel->setContent(QStringLiteral("Tap \"Add App\""));
    m_hintLabel->setOpacity(hintOpacity);
    for (auto* label : {m_emptyLabel, m_hintLabel})
        label->setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
    m_addButton->setSymbol(QStringLiteral("plus"), plusSize);
}

WatchListRow* WatchListView::makeRow(const CustomProcess& process)
{
    auto* row = new WatchListRow(process, m_makeIcon(process.bundleID), this);
    QObject::connect(&row->deleteButton(), &QAbstractButton::clicked, this, [this, id = process.id] {
        if (onDelete)
            onDelete(id);
    });
    row->applyTheme(m_colours);
    row->show();
    return row;
}

void WatchListView::setProcesses(const std::vector<CustomProcess>& processes)
{
    const auto isSame = std::equal(m_rows.begin(), m_rows.end(), processes.begin(), processes.end(),
                                   [](const auto* row, const auto& process) { return row->process() == process; });
    if (isSame && !m_rows.empty())
        return;
    const auto focused =
        std::find_if(m_rows.begin(), m_rows.end(), [](const auto* row) { return row->deleteButton().hasFocus(); });
    const auto focusedRow = static_cast<std::size_t>(focused - m_rows.begin());
    const auto hadFocus = focused != m_rows.end();
    const auto hadRing = hadFocus && (*focused)->deleteButton().showsFocusRing();
    if (hadFocus)
        (*focused)->deleteButton().clearFocus(); // hiding it would move the focus as the Tab key does
    for (auto* row : m_rows) {
        row->hide();
        row->deleteLater(); // it may be its own button that asked
    }
    m_rows.clear();
    for (const auto& process : processes)
        m_rows.push_back(makeRow(process));
    orderFocus();
    m_emptyLabel->setVisible(m_rows.empty());
    m_hintLabel->setVisible(m_rows.empty());
    if (hadFocus)
        moveFocusFrom(focusedRow, hadRing ? Qt::TabFocusReason : Qt::OtherFocusReason);
    layOut();
    update();
    if (onHeightChange)
        onHeightChange();
}

// New widgets come last in the window's order: they are taken to where the button is, and the button behind them.
void WatchListView::orderFocus()
{
    QWidget* previous = m_addButton;
    for (auto* row : m_rows) {
        QWidget::setTabOrder(previous, &row->deleteButton());
        previous = &row->deleteButton();
    }
    if (!m_rows.empty())
        QWidget::setTabOrder(previous, m_addButton);
}

void WatchListView::moveFocusFrom(std::size_t deletedRow, Qt::FocusReason reason)
{
    auto& next = deletedRow < m_rows.size() ? m_rows[deletedRow]->deleteButton() : *m_addButton;
    next.setFocus(reason);
}

int WatchListView::listHeight() const
{
    if (m_rows.empty())
        return 2 * emptyPadding + windowText::mediumBody.line() + emptyToHint + windowText::subtitle.line();
    return static_cast<int>(m_rows.size()) * (m_rows.front()->heightNeeded() + hairline) - hairline;
}

int WatchListView::heightFor(int) const
{
    return listHeight() + hairline + m_addButton->shownSize().height() + 2 * addPadding;
}

void WatchListView::applyTheme(const WindowPalette& colours)
{
    m_colours = colours;
    applyTextStyle(*m_emptyLabel, windowText::mediumBody, colours.primaryText);
    applyTextStyle(*m_hintLabel, windowText::subtitle, colours.primaryText);
    m_addButton->setColours(colours);
    for (auto* row : m_rows)
        row->applyTheme(colours);
    layOut();
    update();
}

void WatchListView::layOutEmpty()
{
    const auto line = windowText::mediumBody.line();
    m_emptyLabel->setGeometry(0, emptyPadding, width(), line);
    m_hintLabel->setGeometry(0, emptyPadding + line + emptyToHint, width(), windowText::subtitle.line());
}

void WatchListView::layOut()
{
    layOutEmpty();
    auto top = 0;
    for (auto* row : m_rows) {
        row->setGeometry(0, top, width(), row->heightNeeded());
        top += row->heightNeeded() + hairline;
    }
    placeShown(*m_addButton, QRect(QPoint(settingsGrid::cardPadding, listHeight() + hairline + addPadding),
                                   m_addButton->shownSize()));
}

void WatchListView::resizeEvent(QResizeEvent*)
{
    layOut();
}

void WatchListView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    for (std::size_t i = 1; i < m_rows.size(); ++i)
        painter.fillRect(QRect(rowLineLeft, m_rows[i]->y() - hairline, width() - rowLineLeft, hairline),
                         m_colours.border);
    painter.fillRect(QRect(0, listHeight(), width(), hairline), m_colours.border);
}

} // namespace orrinvale
