// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/FadeTransition.h"

#include "base/MainQueue.h"

#include <chrono>
#include <utility>

namespace orrinvale
{

// The cubic Bézier curves (0.42, 0) (1, 1) and (0, 0) (0.58, 1) that CSS calls ease-in and ease-out, solved for their
// parameter by bisection: https://www.w3.org/TR/css-easing-1/
namespace
{

double bezier(double a, double b, double t)
{
    return 3 * (1 - t) * (1 - t) * t * a + 3 * (1 - t) * t * t * b + t * t * t;
}

double curve(double x1, double y1, double x2, double y2, double progress)
{
    if (progress <= 0 || progress >= 1)
        return progress <= 0 ? 0 : 1;
    auto low = 0.0;
    auto high = 1.0;
    for (int i = 0; i < 30; ++i) {
        const auto middle = (low + high) / 2;
        (bezier(x1, x2, middle) < progress ? low : high) = middle;
    }
    return bezier(y1, y2, low);
}

} // namespace

double easeIn(double progress)
{
    return curve(0.42, 0, 1, 1, progress);
}

double easeOut(double progress)
{
    return curve(0, 0, 0.58, 1, progress);
}

FadeTransition::FadeTransition(MainQueue& queue, std::function<void(double)> setOpacity)
    : m_queue(queue), m_setOpacity(std::move(setOpacity))
{
}

void FadeTransition::run(std::function<void()> change)
{
    m_change = std::move(change);
    m_phase = Phase::out;
    m_from = m_opacity;
    m_elapsed = 0;
    if (!m_timer)
        m_timer = m_queue.every(std::chrono::milliseconds(stepMilliseconds), [this] { step(); });
}

void FadeTransition::setOpacity(double opacity)
{
    m_opacity = opacity;
    m_setOpacity(opacity);
}

void FadeTransition::step()
{
    m_elapsed += stepMilliseconds;
    if (m_phase == Phase::out) {
        setOpacity(m_from * (1 - easeIn(double(m_elapsed) / outMilliseconds)));
        if (m_elapsed < outMilliseconds)
            return;
        m_phase = Phase::in;
        m_elapsed = 0;
        std::exchange(m_change, nullptr)(); // may itself run the next change
        return;
    }
    setOpacity(easeOut(double(m_elapsed) / inMilliseconds));
    if (m_elapsed >= inMilliseconds)
        m_timer.cancel();
}

} // namespace orrinvale
