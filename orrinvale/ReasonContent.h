// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "orrinvale/WakeSignal.h"

#include <optional>
#include <string>

namespace orrinvale
{

// What the reason card says on one page. Symbols are names of ours.
struct ReasonContent {
    enum class Badge { accent, idle };

    std::string title;
    std::string category;
    std::string symbol;
    std::string time;
    Badge badge = Badge::idle;

    friend bool operator==(const ReasonContent&, const ReasonContent&) = default;

    static ReasonContent of(const WakeSignal& signal, Instant now);
    // With no signal: the engine's own reason while it keeps the machine awake, else that there is none.
    static ReasonContent ofNoSignal(const std::optional<std::string>& fallbackReason, bool isAwake);
};

// One signal per detail, the first of each; highest score first, equal scores in the order given.
WakeSignals pagesOf(const WakeSignals& signals);
// "12s ago", "3m ago", "2h ago"; the future counts as now.
std::string relativeTime(Instant timestamp, Instant now);

} // namespace orrinvale
