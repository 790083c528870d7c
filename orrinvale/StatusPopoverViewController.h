// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Cancellable.h"
#include "orrinvale/IllustrationView.h"
#include "orrinvale/PopoverPalette.h"
#include "orrinvale/WakeMode.h"
#include "orrinvale/WakeSignal.h"

#include <QWidget>

#include <array>
#include <functional>

namespace orrinvale
{

class AppSettings;
class Clock;
class MenuRowButton;
class ModeToggleControl;
class ReasonCardView;
class SymbolBadge;
class TextLabel;
class WakeEngine;
class WakeState;
struct Platform;

// What the popover shows: the state in words, the illustration, the mode toggle, the reason card and three rows. Made
// anew each time the popover opens; whoever made it passes on what the engine publishes. Main thread.
class StatusPopoverViewController final : public QWidget
{
    Q_OBJECT

public:
    StatusPopoverViewController(WakeEngine& engine, AppSettings& settings, const Platform& platform,
                                IllustrationView::OpenFilm openFilm = orrinvale::openFilm);
    ~StatusPopoverViewController() override;

    std::function<void()> onShowLog;
    std::function<void()> onShowSettings;
    std::function<void()> onQuit;
    std::function<void(WakeMode)> onModeChanged;
    // Called after `colours` changed, for what lies around this view.
    std::function<void()> onColoursChanged;

    using QWidget::update;
    void update(const WakeState& state, const WakeSignals& signals, WakeMode mode);

    TextLabel& titleLabel() const { return *m_titleLabel; }
    TextLabel& subtitleLabel() const { return *m_subtitleLabel; }
    SymbolBadge& statusDot() const { return *m_statusDot; }
    IllustrationView& illustrationView() const { return *m_illustrationView; }
    ModeToggleControl& modeToggle() const { return *m_modeToggle; }
    ReasonCardView& reasonCard() const { return *m_reasonCard; }
    MenuRowButton& logButton() const { return *m_rows[0]; }
    MenuRowButton& settingsButton() const { return *m_rows[1]; }
    MenuRowButton& quitButton() const { return *m_rows[2]; }
    const PopoverPalette& colours() const { return m_palette; }

private:
    class GroupOutline;

    void buildHeader();
    void buildToggle();
    void buildRows();
    void applyPalette();
    void applyScale();
    void layOut();
    void updateIllustration(bool isActive);

    WakeEngine& m_engine;
    AppSettings& m_settings;
    PopoverPalette m_palette;
    double m_scale;
    TextLabel* m_productWord;
    SymbolBadge* m_headerSymbol;
    TextLabel* m_titleLabel;
    SymbolBadge* m_statusDot;
    TextLabel* m_subtitleLabel;
    IllustrationView* m_illustrationView;
    TextLabel* m_tagline;
    ModeToggleControl* m_modeToggle = nullptr;
    ReasonCardView* m_reasonCard;
    std::array<MenuRowButton*, 3> m_rows{};
    GroupOutline* m_groupOutline = nullptr;
    Cancellables m_cancellables;
};

} // namespace orrinvale
