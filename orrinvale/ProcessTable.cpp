// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/ProcessTable.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <vector>

#include <fast_float/fast_float.h>

namespace orrinvale
{

namespace
{

constexpr std::string_view blanks = " \t";
constexpr std::size_t columns = 3;

std::vector<std::string_view> pieces(std::string_view line)
{
    std::vector<std::string_view> found;
    for (auto start = line.find_first_not_of(blanks); start != line.npos;) {
        const auto end = line.find_first_of(blanks, start);
        found.push_back(line.substr(start, end - start));
        start = line.find_first_not_of(blanks, end);
    }
    return found;
}

std::errc read(std::string_view text, const char*& stop, std::int32_t& value)
{
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    stop = result.ptr;
    return result.ec;
}

// Not every standard library reads fractions.
std::errc read(std::string_view text, const char*& stop, double& value)
{
    const auto result = fast_float::from_chars(text.data(), text.data() + text.size(), value);
    stop = result.ptr;
    return result.ec;
}

// The whole text as a number in the C locale; a leading "+" is allowed.
template <typename Number>
std::optional<Number> number(std::string_view text)
{
    if (text.starts_with('+')) {
        text.remove_prefix(1);
        if (text.starts_with('-'))
            return std::nullopt;
    }
    Number value{};
    const char* stop = nullptr;
    if (read(text, stop, value) != std::errc{} || stop != text.data() + text.size())
        return std::nullopt;
    return value;
}

std::string joined(std::vector<std::string_view>::const_iterator first,
                   std::vector<std::string_view>::const_iterator last)
{
    std::string text(*first);
    while (++first != last)
        text.append(" ").append(*first);
    return text;
}

std::optional<std::string> busyProcessName(std::string_view line)
{
    const auto row = pieces(line);
    if (row.size() < columns)
        return std::nullopt;
    const auto pid = number<std::int32_t>(row[0]);
    const auto share = number<double>(row[1]);
    if (!pid || *pid < 2 || !share || !std::isfinite(*share) || !(*share > 1.0))
        return std::nullopt;
    auto name = lastPathComponent(joined(row.begin() + 2, row.end()));
    if (std::find(ignoredProcessNames.begin(), ignoredProcessNames.end(), name) != ignoredProcessNames.end())
        return std::nullopt;
    return name;
}

} // namespace

std::string lastPathComponent(std::string_view path)
{
    const auto last = path.find_last_not_of('/');
    if (last == path.npos)
        return std::string(path.substr(0, 1));
    path = path.substr(0, last + 1);
    return std::string(path.substr(path.rfind('/') + 1));
}

std::optional<std::string> topProcessName(std::string_view table)
{
    auto lineEnd = table.find('\n'); // the first line is the header
    while (lineEnd != table.npos) {
        table.remove_prefix(lineEnd + 1);
        lineEnd = table.find('\n');
        if (auto name = busyProcessName(table.substr(0, lineEnd)))
            return name;
    }
    return std::nullopt;
}

} // namespace orrinvale
