// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "text/UserLocale.h"

#include <utility>

namespace orrinvale
{

namespace
{

std::string dateLocale = "en_US";
std::string collationLocale = "en_US";

} // namespace

void provideUserLocale(std::string dates, std::string collation)
{
    dateLocale = std::move(dates);
    collationLocale = std::move(collation);
}

const std::string& userDateLocale()
{
    return dateLocale;
}

const std::string& userCollationLocale()
{
    return collationLocale;
}

} // namespace orrinvale
