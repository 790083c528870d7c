// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Cancellable.h"
#include "kit/Colours.h"
#include "kit/Look.h"
#include "orrinvale/FadeTransition.h"
#include "orrinvale/ReasonContent.h"

#include <QWidget>

namespace orrinvale
{

class Clock;
class SymbolBadge;
class TextLabel;

// The card of the popover that says why the machine is kept awake: one signal at a time, turning to the next every 3.5
// seconds while there are several, with a dot for each. Display only. Main thread.
class ReasonCardView final : public QWidget
{
    Q_OBJECT

public:
    static constexpr auto rotationInterval = 3.5; // seconds

    struct Colours {
        QColor cardBackground;
        QColor textPrimary;
        QColor textSecondary;
        QColor accent;
        QColor separator;
        QColor idleColor = white(0.55);
    };

    ReasonCardView(const Colours& colours, MainQueue& queue, const Clock& clock, QWidget* parent);
    ~ReasonCardView() override;

    // An unchanged list of details leaves what is shown alone, whatever else changed.
    using QWidget::update;
    void update(const WakeSignals& signals, const std::optional<std::string>& fallbackReason, bool isAwake);

    void setColours(const Colours& colours);
    void setScale(double scale);
    // What the present content needs at this width.
    int heightFor(int width) const;
    // One for each signal, in as many lines beside and below the header as they need.
    std::vector<QRectF> pageDots() const;
    int rotationIndex() const { return m_rotationIndex; }
    bool isRotating() const { return static_cast<bool>(m_rotationTimer); }
    const WakeSignals& activeSignals() const { return m_activeSignals; }

    TextLabel& headerLabel() const { return *m_headerLabel; }
    TextLabel& titleLabel() const { return *m_titleLabel; }
    TextLabel& categoryLabel() const { return *m_categoryLabel; }
    TextLabel& timeLabel() const { return *m_timeLabel; }
    SymbolBadge& iconBadge() const { return *m_iconBadge; }

    // Called when `heightFor` may have changed.
    std::function<void()> onHeightChange;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Layout;
    struct DotGrid {
        int columns = 0;
        int lines = 0;
    };

    DotGrid dotGrid(int width) const;
    ReasonContent content() const;
    void show(const ReasonContent& content);
    void apply(const ReasonContent& content);
    void restartOrStopRotation();
    void rotate();
    Layout layoutFor(int width) const;
    void layOut();

    Colours m_colours;
    MainQueue& m_queue;
    const Clock& m_clock;
    double m_scale = 1;
    TextLabel* m_headerLabel;
    SymbolBadge* m_iconBadge;
    TextLabel* m_titleLabel;
    TextLabel* m_categoryLabel;
    TextLabel* m_timeLabel;
    WakeSignals m_activeSignals;
    int m_rotationIndex = 0;
    std::optional<std::string> m_fallbackReason;
    bool m_isAwakeState = false;
    ReasonContent::Badge m_badge = ReasonContent::Badge::idle;
    FadeTransition m_fade;
    Cancellable m_rotationTimer;
};

} // namespace orrinvale
