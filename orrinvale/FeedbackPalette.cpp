// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/FeedbackPalette.h"

namespace orrinvale
{

FeedbackPalette FeedbackPalette::of(Look look)
{
    switch (look) {
    case Look::light:
        break;
    case Look::dark:
        return {0x171717, 0x1f1f1f, 0x4ab86b, 0xe0e0e0, 0x9e9e9e, 0x333333, 0x338f52};
    case Look::sakura:
        return {0xfcf2f5, 0xfef9fb, 0xde7899, 0x522e3d, 0x875c6b, 0xf2e2e8, 0xd46187};
    }
    return {0xf5f5f5, 0xfcfcfc, 0x4ab86b, 0x1a1a1a, 0x595959, 0xe3e3e3, 0x2e944d};
}

QString nameOf(Look look)
{
    switch (look) {
    case Look::light:
        break;
    case Look::dark:
        return QStringLiteral("dark");
    case Look::sakura:
        return QStringLiteral("sakura");
    }
    return QStringLiteral("light");
}

std::optional<Look> lookNamed(QStringView name)
{
    for (const auto look : {Look::light, Look::dark, Look::sakura}) {
        if (name == nameOf(look))
            return look;
    }
    return std::nullopt;
}

} // namespace orrinvale
