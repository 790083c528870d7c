// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/WakeSignal.h"

#include <array>

namespace orrinvale
{

namespace
{

constexpr std::array allSources{SignalSource::download, SignalSource::network, SignalSource::process, SignalSource::cpu,
                                SignalSource::manual};

} // namespace

std::string_view rawValue(SignalSource source)
{
    switch (source) {
    case SignalSource::download:
        return "Download";
    case SignalSource::network:
        return "Network";
    case SignalSource::process:
        return "Process";
    case SignalSource::cpu:
        return "CPU";
    case SignalSource::manual:
        return "Manual";
    }
    return {};
}

std::optional<SignalSource> signalSourceFromRawValue(std::string_view text)
{
    for (const auto source : allSources) {
        if (rawValue(source) == text)
            return source;
    }
    return std::nullopt;
}

} // namespace orrinvale
