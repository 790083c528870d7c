// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/ThemeLook.h"

#include "orrinvale/AppSettings.h"

namespace orrinvale
{

Look lookOf(const AppSettings& settings)
{
    if (settings.appTheme.get() == AppTheme::sakura)
        return Look::sakura;
    return settings.isDarkTheme() ? Look::dark : Look::light;
}

} // namespace orrinvale
