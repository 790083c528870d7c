// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>

namespace orrinvale
{

class WakeState;

// The picture of the status item: a full cup, or an empty one while idle. `imageFolder` is where our images are;
// without them an emoji takes their place.
QIcon statusIcon(const WakeState& state, const QString& imageFolder = QStringLiteral(":/images/"));
// "Awake: …", "Cooling Down: …" or "Idle: …"; plain text.
QString statusToolTip(const WakeState& state);
// The side of the picture within an icon of `side` pixels. Its lines fall on whole pixels at multiples of 18, so that a
// margin is better than a larger picture with soft edges.
int pictureSide(int side);

} // namespace orrinvale
