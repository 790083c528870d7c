// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "kit/WindowText.h"

#include "kit/TextLabel.h"
#include "kit/Typography.h"

#include <cmath>

namespace orrinvale
{

QFont TextStyle::font() const
{
    return textFont(pixels, weight, tracking);
}

int TextStyle::line() const
{
    return withText(lineHeight);
}

void applyTextStyle(TextLabel& label, const TextStyle& style, const QColor& colour)
{
    label.setStyle(style.font(), colour);
    label.setLineHeight(style.line());
}

int withText(double pixels)
{
    return static_cast<int>(std::lround(pixels * textScale()));
}

} // namespace orrinvale
