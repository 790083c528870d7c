// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

class QAccessibleInterface;
class QObject;
class QString;

namespace orrinvale
{

// Tells assistive technology of an ordinary window as a window, where Qt would tell of a container. nullptr for
// everything else; a factory of QAccessible.
QAccessibleInterface* accessibleWindow(const QString& className, QObject* object);

} // namespace orrinvale
