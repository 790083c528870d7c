// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/AppPickerList.h"

#include "kit/OverlayThumb.h"
#include "kit/PaintedButton.h"
#include "kit/Shapes.h"
#include "kit/TextLabel.h"
#include "kit/VisibleText.h"
#include "kit/WindowText.h"
#include "orrinvale/AppPicker.h"
#include "orrinvale/AppRowDelegate.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>

namespace orrinvale
{

namespace
{

constexpr auto hairline = 1;
constexpr auto frameRadius = 8.0;

} // namespace

class AppPickerList::Model final : public QAbstractListModel
{
public:
    Model(const AppPicker& picker, QObject* parent) : QAbstractListModel(parent), m_picker(picker) {}

    void reset()
    {
        beginResetModel();
        endResetModel();
    }
    int count() const { return static_cast<int>(m_picker.rowCount()); }
    int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : count(); }
    QVariant data(const QModelIndex& index, int role) const override
    {
        if (role != Qt::DisplayRole)
            return {};
        return visibleText(m_picker.app(static_cast<std::size_t>(index.row())).name);
    }

private:
    const AppPicker& m_picker;
};

AppPickerList::AppPickerList(const AppPicker& picker, MainQueue& queue, QWidget* parent)
    : QListView(parent), m_picker(picker), m_model(new Model(picker, this)),
      m_delegate(new AppRowDelegate(picker, queue, *this)),
      m_thumb(new OverlayThumb(this, OverlayThumb::Shows::wheneverThereIsMore)), m_loadingLabel(new TextLabel(this))
{
    setAccessibleName(QStringLiteral("Apps"));
    setFrameShape(NoFrame);
    setUniformItemSizes(true);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSelectionMode(NoSelection); // by the user: what is selected is what the picker says
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    viewport()->setAttribute(Qt::WA_Hover);
    m_thumb->setFrameWidth(hairline);
    m_loadingLabel->setContent(QStringLiteral("Loading apps…"));
    m_loadingLabel->setAlignment(Qt::AlignCenter);
    m_loadingLabel->setAttribute(Qt::WA_TransparentForMouseEvents);
    setItemDelegate(m_delegate);
    setModel(m_model);
    QObject::connect(this, &QAbstractItemView::clicked, this, [this](const QModelIndex& index) { choose(index); });
}

void AppPickerList::applyTheme(const WindowPalette& colours)
{
    m_colours = colours;
    m_delegate->setColours(colours);
    m_thumb->setColour(colours.scrollThumb);
    applyTextStyle(*m_loadingLabel, windowText::body, colours.quietText);
    scheduleDelayedItemsLayout(); // the rows' height follows the font
    viewport()->update();
}

void AppPickerList::showRows()
{
    m_loadingLabel->setVisible(m_picker.isLoading());
    m_model->reset();
    showChoice();
    verticalScrollBar()->setValue(0);
    if (m_picker.searchText().empty() && m_picker.selectedRow())
        scrollTo(indexOf(*m_picker.selectedRow()));
}

void AppPickerList::showChoice()
{
    if (const auto row = m_picker.selectedRow())
        selectionModel()->select(indexOf(*row), QItemSelectionModel::ClearAndSelect);
    else
        selectionModel()->clearSelection();
}

void AppPickerList::enter()
{
    if (m_model->count() == 0)
        return;
    setFocus(Qt::TabFocusReason);
    setCursorRow(static_cast<int>(m_picker.selectedRow().value_or(0)));
}

QModelIndex AppPickerList::indexOf(std::size_t row) const
{
    return m_model->index(static_cast<int>(row));
}

QRect AppPickerList::rowRect(std::size_t row) const
{
    return AppRowDelegate::shownPart(visualRect(indexOf(row)));
}

std::optional<std::size_t> AppPickerList::cursor() const
{
    return currentIndex().isValid() ? std::optional(static_cast<std::size_t>(currentIndex().row())) : std::nullopt;
}

// The rows begin below an inset.
int AppPickerList::verticalOffset() const
{
    return verticalScrollBar()->value() - AppRowDelegate::inset;
}

void AppPickerList::updateGeometries()
{
    QAbstractItemView::updateGeometries();
    const auto contents = m_model->count() * AppRowDelegate::rowHeight() + 2 * AppRowDelegate::inset;
    verticalScrollBar()->setSingleStep(AppRowDelegate::rowHeight());
    verticalScrollBar()->setPageStep(viewport()->height());
    verticalScrollBar()->setRange(0, std::max(0, contents - viewport()->height()));
}

// Nothing is moved within the window: the frame is part of the viewport and stays.
void AppPickerList::scrollContentsBy(int, int)
{
    viewport()->update();
}

void AppPickerList::scrollTo(const QModelIndex& index, ScrollHint)
{
    if (!index.isValid())
        return;
    const auto top = index.row() * AppRowDelegate::rowHeight();
    const auto bottom = top + AppRowDelegate::rowHeight() + 2 * AppRowDelegate::inset;
    auto& bar = *verticalScrollBar();
    bar.setValue(std::max(std::min(bar.value(), top), bottom - viewport()->height()));
}

void AppPickerList::choose(const QModelIndex& index)
{
    if (index.isValid() && onChoose)
        onChoose(static_cast<std::size_t>(index.row()));
}

void AppPickerList::chooseOrAdd()
{
    if (!cursor() || cursor() != m_picker.selectedRow())
        choose(currentIndex());
    else if (onAdd)
        onAdd();
}

void AppPickerList::showCursor(bool shows)
{
    m_delegate->setShowsCursor(shows);
    viewport()->update();
}

void AppPickerList::setCursorRow(int row)
{
    const auto index = m_model->index(std::clamp(row, 0, m_model->count() - 1));
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    scrollTo(index);
    showCursor(true);
}

// Where a key moves the cursor to, before the ends are looked at.
std::optional<int> AppPickerList::rowFor(int key) const
{
    const auto row = currentIndex().isValid() ? currentIndex().row() : -1;
    const auto page = std::max(1, viewport()->height() / AppRowDelegate::rowHeight() - 1);
    switch (key) {
    case Qt::Key_Up:
        return row - 1;
    case Qt::Key_Down:
        return row + 1;
    case Qt::Key_PageUp:
        return std::max(0, row - page);
    case Qt::Key_PageDown:
        return row + page;
    case Qt::Key_Home:
        return 0;
    case Qt::Key_End:
        return m_model->count() - 1;
    default:
        return std::nullopt;
    }
}

void AppPickerList::keyPressEvent(QKeyEvent* event)
{
    if (const auto row = rowFor(event->key())) {
        if (*row < 0 && onLeave)
            onLeave();
        else if (m_model->count() > 0)
            setCursorRow(*row);
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (!event->isAutoRepeat()) // held, it would choose and add at once
            chooseOrAdd();
    } else if (event->key() == Qt::Key_Space) {
        choose(currentIndex());
    } else if (!event->text().isEmpty() && event->text().at(0).isPrint()) {
        keyboardSearch(event->text());
        showCursor(true);
    } else {
        event->ignore();
    }
}

void AppPickerList::mousePressEvent(QMouseEvent* event)
{
    showCursor(false);
    QListView::mousePressEvent(event);
}

void AppPickerList::focusInEvent(QFocusEvent* event)
{
    QListView::focusInEvent(event);
    if (!isKeyboardFocus(event->reason()))
        return;
    if (currentIndex().isValid())
        showCursor(true);
    else
        enter();
}

void AppPickerList::focusOutEvent(QFocusEvent* event)
{
    QListView::focusOutEvent(event);
    showCursor(false);
}

void AppPickerList::resizeEvent(QResizeEvent* event)
{
    QListView::resizeEvent(event);
    m_loadingLabel->setGeometry(rect());
}

void AppPickerList::paintEvent(QPaintEvent* event)
{
    QPainter painter(viewport());
    painter.fillRect(viewport()->rect(), m_colours.card);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_colours.field);
    painter.drawRoundedRect(viewport()->rect(), frameRadius, frameRadius);
    painter.end();
    QListView::paintEvent(event);
    painter.begin(viewport());
    painter.setRenderHint(QPainter::Antialiasing);
    strokeInside(painter, viewport()->rect(), frameRadius, hairline, m_colours.border);
}

} // namespace orrinvale
