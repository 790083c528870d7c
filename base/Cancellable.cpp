// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "base/Cancellable.h"

#include <utility>

namespace orrinvale
{

Cancellable::Cancellable(Cancellable&& other) noexcept : m_onCancel(std::exchange(other.m_onCancel, nullptr)) {}

Cancellable& Cancellable::operator=(Cancellable&& other) noexcept
{
    if (this != &other) {
        auto previous = std::exchange(m_onCancel, std::exchange(other.m_onCancel, nullptr));
        if (previous)
            previous();
    }
    return *this;
}

void Cancellable::cancel()
{
    if (auto action = std::exchange(m_onCancel, nullptr))
        action();
}

Cancellables& Cancellables::operator+=(Cancellable token)
{
    m_tokens.push_back(std::move(token));
    return *this;
}

void Cancellables::clear()
{
    auto dying = std::exchange(m_tokens, {});
}

} // namespace orrinvale
