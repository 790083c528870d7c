// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

namespace orrinvale
{

// Gives the environment a locale of UTF-8 where it names none or one of another encoding; what it says of language and
// region stays. Qt works in nothing else, and its newer versions warn at each start. Of a locale that is not installed
// they warn too, and rightly: that is left to them. Before the application object and any thread.
void useUTF8();

} // namespace orrinvale
