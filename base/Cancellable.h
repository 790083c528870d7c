// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <vector>

namespace orrinvale
{

// A move-only token for a subscription, a timer or a pending piece of work. Dropping or replacing it ends what it
// stands for; that never blocks and is safe inside the very handler it belongs to.
class [[nodiscard]] Cancellable
{
public:
    Cancellable() = default;
    explicit Cancellable(std::function<void()> onCancel) : m_onCancel(std::move(onCancel)) {}
    Cancellable(Cancellable&& other) noexcept;
    Cancellable& operator=(Cancellable&& other) noexcept;
    ~Cancellable() { cancel(); }

    void cancel();
    // Forgets what the token stands for, which goes on without it.
    void detach() { m_onCancel = nullptr; }
    explicit operator bool() const { return static_cast<bool>(m_onCancel); }

private:
    std::function<void()> m_onCancel;
};

// Keeps tokens alive together; an owner's last member, so that it dies first.
class Cancellables
{
public:
    Cancellables& operator+=(Cancellable token);
    void clear();
    bool empty() const { return m_tokens.empty(); }

private:
    std::vector<Cancellable> m_tokens;
};

} // namespace orrinvale
