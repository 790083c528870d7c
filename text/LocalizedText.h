// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orrinvale
{

// Order and search as the users of one language expect them, case aside: "É" and "é" are the same, "É" and "E" are not.
// `locale` is one such as "de_DE"; texts are UTF-8. Any thread.

// One key for each text; keys compare as the texts are ordered, and are equal when these differ in case alone.
std::vector<std::string> sortKeys(const std::vector<std::string_view>& texts, const std::string& locale);

// The form of a text in which another's form is looked for.
std::u16string searchForm(std::string_view text, const std::string& locale);
// Of two such forms: whether the second occurs in the first, as whole characters. The empty one occurs in all.
bool contains(std::u16string_view text, std::u16string_view part);

} // namespace orrinvale
