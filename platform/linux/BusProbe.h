// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDeadlineTimer>

#include <string>

namespace orrinvale
{

// Where the buses are, in D-Bus's own form; empty when nothing tells.
std::string sessionBusAddress();
std::string systemBusAddress();

enum class BusAnswer { answers, hangs, absent };
// Whether somebody at the address answers the first word of D-Bus's conversation by then: libraries that connect have
// no bound of their own. Addresses that are no Unix socket are believed. Thread-safe.
BusAnswer probeBus(const std::string& address, const QDeadlineTimer& deadline);

} // namespace orrinvale
