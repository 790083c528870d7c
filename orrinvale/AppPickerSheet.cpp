// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/AppPickerSheet.h"

#include "kit/FocusRing.h"
#include "kit/TextField.h"
#include "kit/TextLabel.h"
#include "kit/WindowButton.h"
#include "orrinvale/AppPickerList.h"
#include "orrinvale/CustomProcess.h"
#include "platform/Platform.h"

#include <QKeyEvent>
#include <QLineEdit>

#include <algorithm>

namespace orrinvale
{

namespace
{

constexpr QSize largestCard(420, 468);
constexpr auto padding = 20;
constexpr auto fieldGap = 12;  // between head, search and list
constexpr auto groupGap = 16;  // between list, label and buttons
constexpr auto captionGap = 4; // between LABEL and its field
constexpr auto buttonGap = 8;
constexpr auto leastButton = 80;

} // namespace

AppPickerSheet::AppPickerSheet(const Platform& platform, std::string locale, Look look, QWidget* content)
    : Sheet(platform.mainQueue, platform.appearance, largestCard, content), m_picker(platform, std::move(locale)),
      m_head(new TextLabel(&card(), Qt::ElideRight)),
      m_search(new TextField(QStringLiteral("Search apps…"), windowText::rowTitle, &card())),
      m_list(new AppPickerList(m_picker, platform.mainQueue, &card())),
      m_labelCaption(new TextLabel(&card(), Qt::ElideRight)),
      m_label(new TextField(QStringLiteral("Label"), windowText::body, &card())),
      m_cancel(new WindowButton(QStringLiteral("Cancel"), WindowButton::Kind::ordinary, &card())),
      m_add(new WindowButton(QStringLiteral("Add"), WindowButton::Kind::filled, &card()))
{
    buildControls();
    connectControls();
    applyTheme(look);
    present();
    m_search->line().setFocus();
}

void AppPickerSheet::buildControls()
{
    m_head->setContent(QStringLiteral("Add App to Watch List"));
    setAccessibleName(m_head->text());
    m_search->setSymbol(QStringLiteral("magnifyingglass"));
    m_search->addClearButton(QStringLiteral("Clear search"));
    m_search->line().setPlaceholderText(QStringLiteral("Search apps…"));
    m_labelCaption->setContent(QStringLiteral("LABEL"));
    m_cancel->setTextStyle(windowText::mediumTitle);
    m_add->setEnabled(false);
}

void AppPickerSheet::connectControls()
{
    m_picker.onLoaded = [this] { m_list->showRows(); };
    m_picker.onAdd = [this](CustomProcess process) {
        if (onAdd)
            onAdd(std::move(process));
    };
    m_picker.onDismiss = [this] {
        dismiss();
        if (onDismiss)
            onDismiss();
    };
    m_list->onChoose = [this](std::size_t row) { choose(row); };
    m_list->onAdd = [this] { m_picker.add(); };
    m_list->onLeave = [this] { m_search->line().setFocus(Qt::BacktabFocusReason); };
    QObject::connect(&m_search->line(), &QLineEdit::textChanged, this, [this](const QString& text) { search(text); });
    QObject::connect(&m_label->line(), &QLineEdit::textChanged, this,
                     [this](const QString& text) { m_picker.setLabelText(text.toStdString()); });
    QObject::connect(m_cancel, &QAbstractButton::clicked, this, [this] { m_picker.cancel(); });
    QObject::connect(m_add, &QAbstractButton::clicked, this, [this] { m_picker.add(); });
}

void AppPickerSheet::search(const QString& text)
{
    m_picker.setSearchText(text.toStdString());
    m_list->showRows();
}

void AppPickerSheet::choose(std::size_t row)
{
    m_picker.select(row);
    m_list->showChoice();
    m_label->line().setText(QString::fromStdString(m_picker.labelText()));
    m_label->line().home(false); // a long label shows its beginning
    m_label->line().setPlaceholderText(QString::fromStdString(m_picker.labelPlaceholder()));
    m_add->setEnabled(m_picker.canAdd());
}

void AppPickerSheet::applyTheme(Look look)
{
    const auto& colours = WindowPalette::of(look);
    applyTextStyle(*m_head, windowText::sheetHead, colours.primaryText);
    applyTextStyle(*m_labelCaption, windowText::fieldHead, colours.quietText);
    m_search->applyTheme(colours);
    m_list->applyTheme(colours);
    m_label->applyTheme(colours);
    m_cancel->setColours(colours);
    m_add->setColours(colours);
    setLook(look);
}

// Down from the head, and up from the buttons; the list takes what is left.
void AppPickerSheet::layOutCard()
{
    const auto inner = card().rect().adjusted(padding, padding, -padding, -padding);
    const auto line = [&](int top, int height) { return QRect(inner.left(), top, inner.width(), height); };
    m_head->setGeometry(line(inner.top(), windowText::sheetHead.line()));
    const auto searchTop = inner.top() + m_head->height() + fieldGap;
    m_search->placeFrame(line(searchTop, m_search->shownHeight()));
    const auto listTop = searchTop + m_search->shownHeight() + fieldGap;

    auto right = inner.right() + 1;
    const auto buttonTop = inner.bottom() + 1 - m_add->shownSize().height();
    for (auto* button : {m_add, m_cancel}) {
        const auto size = button->shownSize().expandedTo({leastButton, 0});
        placeShown(*button, QRect({right - size.width(), buttonTop}, size));
        right -= size.width() + buttonGap;
    }
    const auto labelTop = buttonTop - groupGap - m_label->shownHeight();
    m_label->placeFrame(line(labelTop, m_label->shownHeight()));
    const auto captionTop = labelTop - captionGap - windowText::fieldHead.line();
    m_labelCaption->setGeometry(line(captionTop, windowText::fieldHead.line()));
    m_list->setGeometry(line(listTop, captionTop - groupGap - listTop));
}

// What its controls leave. Nothing gets through to the window.
void AppPickerSheet::keyPressEvent(QKeyEvent* event)
{
    event->accept();
    if (event->isAutoRepeat())
        return;
    if (event->key() == Qt::Key_Escape)
        m_picker.cancel();
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        m_picker.add();
    else if (event->key() == Qt::Key_Down && m_search->line().hasFocus())
        m_list->enter();
}

void AppPickerSheet::hideEvent(QHideEvent* event)
{
    if (!event->spontaneous()) // a minimized window keeps it
        m_picker.cancel();
}

std::vector<QWidget*> AppPickerSheet::focusStops() const
{
    std::vector<QWidget*> stops{&m_search->line()};
    if (m_search->clearButton()->isVisible())
        stops.push_back(m_search->clearButton());
    if (m_picker.rowCount() > 0)
        stops.push_back(m_list);
    stops.insert(stops.end(), {&m_label->line(), m_cancel});
    if (m_add->isEnabled())
        stops.push_back(m_add);
    return stops;
}

bool AppPickerSheet::focusNextPrevChild(bool next)
{
    const auto stops = focusStops();
    const auto focused = std::find(stops.begin(), stops.end(), window()->focusWidget());
    const auto at = focused == stops.end() ? 0 : focused - stops.begin();
    const auto count = static_cast<std::ptrdiff_t>(stops.size());
    auto* stop = stops[static_cast<std::size_t>((at + (next ? 1 : count - 1)) % count)];
    stop->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

} // namespace orrinvale
