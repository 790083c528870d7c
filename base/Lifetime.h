// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <utility>

namespace orrinvale
{

// Work of an owner that does nothing once the owner is gone.
template <typename Work>
class UnlessGone
{
public:
    UnlessGone(std::weak_ptr<const void> owner, Work work) : m_owner(std::move(owner)), m_work(std::move(work)) {}

    // On the owner's thread.
    template <typename... Arguments>
    void operator()(Arguments&&... arguments) const
    {
        if (!isGone())
            m_work(std::forward<Arguments>(arguments)...);
    }
    // Any thread may ask, to spare itself work for nobody; only on the owner's thread is "no" more than of this moment.
    bool isGone() const { return m_owner.expired(); }

private:
    std::weak_ptr<const void> m_owner;
    Work m_work;
};

// "Do this unless I am gone": a member of an owner that hands work to queues, callers and background threads, and may
// go before they come back. The owner lives and ends on one thread, and the work runs there. Its last member, so that
// it ends first.
class Lifetime
{
public:
    Lifetime() = default;
    Lifetime(const Lifetime&) = delete;
    Lifetime& operator=(const Lifetime&) = delete;

    template <typename Work>
    [[nodiscard]] UnlessGone<Work> unlessGone(Work work) const
    {
        return {m_token, std::move(work)};
    }
    // What was handed out so far never runs; what is handed out from now on does.
    void renew() { m_token = std::make_shared<char>(); }

private:
    std::shared_ptr<const void> m_token = std::make_shared<char>();
};

} // namespace orrinvale
