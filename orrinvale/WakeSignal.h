// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Clock.h"
#include "base/UUID.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orrinvale
{

// The kind of detector that produced a signal; the raw value is its label.
enum class SignalSource { download, network, process, cpu, manual };

std::string_view rawValue(SignalSource source);
std::optional<SignalSource> signalSourceFromRawValue(std::string_view text);

// One present reason to stay awake. Never changed after its making; a detector replaces its whole list.
struct WakeSignal {
    UUID id = UUID::random();
    SignalSource source;
    std::string detail; // one short sentence, UTF-8
    std::int64_t score; // weight; the engine sums the scores of all signals
    Instant timestamp;  // when the detector made it
    std::optional<std::string> appBundleID;
    std::optional<std::string> appName;
};

using WakeSignals = std::vector<WakeSignal>;

} // namespace orrinvale
