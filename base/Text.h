// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace orrinvale
{

// Any bytes as valid UTF-8: each maximal broken sequence becomes U+FFFD. Names from the system pass here before they
// enter a signal.
std::string validUtf8(std::string_view bytes);

// A sign that can be seen for each control character (␛ ␊ ␡ …, and the replacement character for those above ASCII),
// for places that show a name which the user did not choose. What is stored keeps its bytes. Takes valid UTF-8.
std::string withVisibleControls(std::string_view utf8);

// ASCII lower case, whatever the locale; other bytes stay as they are.
std::string asciiLowercase(std::string_view text);

} // namespace orrinvale
