// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/Accessibility.h"

#include "kit/ContinuousSlider.h"
#include "kit/WindowAccessibility.h"
#include "orrinvale/AppPickerSheet.h"
#include "orrinvale/HeatmapAccessibility.h"
#include "orrinvale/HeatmapView.h"
#include "orrinvale/HourBarChartView.h"
#include "orrinvale/ModeToggleControl.h"
#include "orrinvale/Popover.h"

#include <QAccessibleObject>
#include <QAccessibleWidget>
#include <QApplication>

namespace orrinvale
{

namespace
{

QAccessibleInterface* openPopover()
{
    for (auto* window : QApplication::topLevelWidgets())
        if (qobject_cast<Popover*>(window) && window->isVisible())
            return QAccessible::queryAccessibleInterface(window);
    return nullptr;
}

// Qt's own, with the popover behind the last window.
class AccessibleApplication final : public QAccessibleApplication
{
public:
    int childCount() const override { return QAccessibleApplication::childCount() + (openPopover() ? 1 : 0); }

    QAccessibleInterface* child(int index) const override
    {
        const auto isPopover = index == QAccessibleApplication::childCount();
        return isPopover ? openPopover() : QAccessibleApplication::child(index);
    }

    int indexOfChild(const QAccessibleInterface* child) const override
    {
        const auto* popover = openPopover();
        if (child && popover && child->object() == popover->object())
            return QAccessibleApplication::childCount();
        return QAccessibleApplication::indexOfChild(child);
    }
};

QAccessibleInterface* make(const QString& className, QObject* object)
{
    if (object == qApp)
        return new AccessibleApplication;
    if (auto* popover = qobject_cast<Popover*>(object))
        return new QAccessibleWidget(popover, QAccessible::Dialog);
    if (auto* toggle = qobject_cast<ModeToggleControl*>(object))
        return new QAccessibleWidget(toggle, QAccessible::Grouping);
    if (auto* sheet = qobject_cast<AppPickerSheet*>(object))
        return new QAccessibleWidget(sheet, QAccessible::Dialog);
    if (auto* chart = qobject_cast<HourBarChartView*>(object))
        return new QAccessibleWidget(chart, QAccessible::Chart);
    if (auto* heatmap = qobject_cast<HeatmapView*>(object))
        return accessibleHeatmap(heatmap);
    if (auto* slider = qobject_cast<ContinuousSlider*>(object))
        return accessibleSlider(slider);
    return accessibleWindow(className, object);
}

} // namespace

void installAccessibility()
{
    QAccessible::installFactory(make);
}

} // namespace orrinvale
