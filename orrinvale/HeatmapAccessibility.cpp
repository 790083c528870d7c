// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/HeatmapAccessibility.h"

#include "orrinvale/HeatmapView.h"

#include <QAccessibleWidget>
#include <QWindow>

#include <map>

namespace orrinvale
{

namespace
{

// One day; it answers for whatever day the last drawing put at its place.
class DayInterface final : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    DayInterface(HeatmapView* view, std::size_t index) : m_view(view), m_index(index) {}

    bool isValid() const override { return m_index < m_view->cellRects().size(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return m_view->window()->windowHandle(); }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(m_view); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::Cell; }
    void setText(QAccessible::Text, const QString&) override {}

    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name && isValid() ? m_view->tooltipOf(cell()) : QString();
    }

    QRect rect() const override
    {
        if (!isValid())
            return {};
        const auto place = m_view->cellOnScreen(cell()).toAlignedRect();
        return {m_view->mapToGlobal(place.topLeft()), place.size()};
    }

    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.selectable = true;
        state.focusable = true;
        state.selected = isValid() && m_view->isSelected(cell());
        state.focused = state.selected && m_view->hasFocus();
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
    }

    QStringList actionNames() const override { return {pressAction()}; }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }
    void doAction(const QString& action) override
    {
        if (action == pressAction() && isValid())
            m_view->selectDay(cell().day.date);
    }

private:
    const HeatmapCell& cell() const { return m_view->cellRects()[m_index]; }

    HeatmapView* m_view;
    std::size_t m_index;
};

class HeatmapInterface final : public QAccessibleWidget
{
public:
    explicit HeatmapInterface(HeatmapView* view) : QAccessibleWidget(view, QAccessible::Table), m_view(view) {}

    ~HeatmapInterface() override
    {
        for (const auto& [index, id] : m_days)
            QAccessible::deleteAccessibleInterface(id);
    }

    int childCount() const override { return static_cast<int>(m_view->cellRects().size()); }

    QAccessibleInterface* child(int index) const override
    {
        if (index < 0 || index >= childCount())
            return nullptr;
        auto day = m_days.find(index);
        if (day == m_days.end()) {
            auto* made = new DayInterface(m_view, static_cast<std::size_t>(index));
            day = m_days.emplace(index, QAccessible::registerAccessibleInterface(made)).first;
        }
        return QAccessible::accessibleInterface(day->second);
    }

    int indexOfChild(const QAccessibleInterface* wanted) const override
    {
        for (const auto& [index, id] : m_days) {
            if (QAccessible::accessibleInterface(id) == wanted)
                return index;
        }
        return -1;
    }

    QAccessibleInterface* childAt(int x, int y) const override
    {
        for (int i = 0; i < childCount(); ++i) {
            if (child(i)->rect().contains(x, y))
                return child(i);
        }
        return nullptr;
    }

private:
    HeatmapView* m_view;
    mutable std::map<int, QAccessible::Id> m_days;
};

} // namespace

QAccessibleInterface* accessibleHeatmap(HeatmapView* view)
{
    return new HeatmapInterface(view);
}

} // namespace orrinvale
