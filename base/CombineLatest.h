// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Published.h"

#include <functional>
#include <memory>
#include <optional>
#include <tuple>
#include <type_traits>

namespace orrinvale
{

namespace detail
{

template <typename... T>
struct Latest {
    std::tuple<std::optional<T>...> values;
    std::function<void(const T&...)> handler;

    bool complete() const
    {
        return std::apply([](const auto&... value) { return (value.has_value() && ...); }, values);
    }
};

template <std::size_t Index, typename Shared, typename Value>
Cancellable observeLatest(MainQueue& queue, const std::shared_ptr<Shared>& latest, Published<Value>& published)
{
    return published.observe([&queue, latest](const Value& value) {
        std::get<Index>(latest->values) = value;
        if (!latest->complete())
            return;
        queue.post([weak = std::weak_ptr(latest), values = latest->values] {
            if (const auto alive = weak.lock(); alive && alive->handler)
                std::apply([&](const auto&... each) { alive->handler(*each...); }, values);
        });
    });
}

} // namespace detail

// Delivers the latest values of all on `queue`, once now and again each time any of them publishes: one hop for each.
template <typename... T>
[[nodiscard]] Cancellable combineLatest(MainQueue& queue,
                                        std::type_identity_t<std::function<void(const T&...)>> handler,
                                        Published<T>&... published)
{
    auto latest = std::make_shared<detail::Latest<T...>>();
    latest->handler = std::move(handler);
    auto tokens = std::make_shared<Cancellables>();
    [&]<std::size_t... Index>(std::index_sequence<Index...>)
    {
        ((*tokens += detail::observeLatest<Index>(queue, latest, published)), ...);
    }
    (std::index_sequence_for<T...>{});
    return Cancellable([tokens, latest] {
        tokens->clear();
        latest->handler = nullptr;
    });
}

} // namespace orrinvale
