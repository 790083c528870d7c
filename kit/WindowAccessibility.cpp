// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "kit/WindowAccessibility.h"

#include <QAccessibleWidget>

namespace orrinvale
{

QAccessibleInterface* accessibleWindow(const QString& className, QObject* object)
{
    // Qt asks for each class of an object, down to this one where nothing more is known of it.
    auto* widget = className == QStringLiteral("QWidget") ? qobject_cast<QWidget*>(object) : nullptr;
    return widget && widget->isWindow() ? new QAccessibleWidget(widget, QAccessible::Window) : nullptr;
}

} // namespace orrinvale
