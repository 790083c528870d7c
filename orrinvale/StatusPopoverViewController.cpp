// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/StatusPopoverViewController.h"

#include "kit/Shapes.h"
#include "kit/SymbolBadge.h"
#include "kit/TextLabel.h"
#include "kit/Typography.h"
#include "orrinvale/AppSettings.h"
#include "orrinvale/MenuRowButton.h"
#include "orrinvale/ModeToggleControl.h"
#include "orrinvale/PopoverLayout.h"
#include "orrinvale/ReasonCardView.h"
#include "orrinvale/ThemeLook.h"
#include "orrinvale/WakeEngine.h"
#include "platform/Appearance.h"
#include "platform/Platform.h"

#include <QPainter>

#include <cmath>

namespace orrinvale
{

namespace
{

constexpr auto groupRadius = 12.0;
constexpr auto toggleMargin = 4; // of the control around its track

struct Row {
    QString title;
    QString subtitle;
    QString symbol;
};

std::array<Row, 3> rowTexts()
{
    return {
        {{QStringLiteral("Activity Log"), QStringLiteral("See your orrinvale activities"),
          QStringLiteral("leaf.circle.fill")},
         {QStringLiteral("Settings"), QStringLiteral("Customize & behavior"), QStringLiteral("gearshape.circle.fill")},
         {QStringLiteral("Quit"), QStringLiteral("Pause orrinvale"), QStringLiteral("power.circle.fill")}}};
}

QStringList modeTitles()
{
    QStringList titles;
    for (const auto mode : allWakeModes)
        titles += QString::fromUtf8(rawValue(mode));
    return titles;
}

ReasonCardView::Colours cardColours(const PopoverPalette& palette)
{
    return {.cardBackground = palette.rowSurface,
            .textPrimary = palette.primaryText,
            .textSecondary = palette.secondaryText,
            .accent = palette.accent,
            .separator = palette.separator,
            .idleColor = palette.idleBadge};
}

MenuRowButton::Colours rowColours(const PopoverPalette& palette)
{
    return {.iconColor = palette.strong,
            .tint = palette.tint,
            .bgColor = palette.rowSurface,
            .separatorColor = palette.separator,
            .primary = palette.rowPrimaryText,
            .secondary = palette.rowSecondaryText,
            .chevron = palette.secondaryText,
            .focusRing = palette.strong,
            .highlight = palette.highlight};
}

ModeToggleControl::Colours toggleColours(const PopoverPalette& palette)
{
    return {.track = palette.rowSurface,
            .separator = palette.separator,
            .background = palette.background,
            .segment = {.selectedColor = palette.toggleSelected,
                        .textColor = palette.toggleText,
                        .highlight = palette.highlight,
                        .focusRing = palette.strong,
                        .focusGap = palette.background}};
}

struct StatusText {
    QString title;
    QString subtitle;
    QColor dot;
};

StatusText statusText(const WakeState& state, const PopoverPalette& palette)
{
    switch (state.kind()) {
    case WakeState::Case::awake:
        return {QStringLiteral("Your Mac is awake. 🌿"), QStringLiteral("Orrin is watching over your Mac."),
                palette.accent};
    case WakeState::Case::cooldown:
        return {QStringLiteral("Almost done…"),
                QString::fromStdString("Going to sleep in " + std::to_string(state.secondsRemaining()) + "s"),
                palette.cooldownDot};
    case WakeState::Case::idle:
        break;
    }
    return {QStringLiteral("Mac is about to sleep. ☕"), QStringLiteral("No active protection."), palette.idleDot};
}

} // namespace

// The outline of the group of rows, above them, so that a row's tint cannot cover it.
class StatusPopoverViewController::GroupOutline final : public QWidget
{
public:
    explicit GroupOutline(QWidget* parent) : QWidget(parent) { setAttribute(Qt::WA_TransparentForMouseEvents); }
    QColor colour;

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        strokeInside(painter, rect(), groupRadius, 1, colour);
    }
};

StatusPopoverViewController::StatusPopoverViewController(WakeEngine& engine, AppSettings& settings,
                                                         const Platform& platform, IllustrationView::OpenFilm openFilm)
    : m_engine(engine), m_settings(settings), m_palette(PopoverPalette::of(lookOf(settings))), m_scale(textScale()),
      m_productWord(new TextLabel(this)), m_headerSymbol(new SymbolBadge(0, 20, this)),
      m_titleLabel(new TextLabel(this)), m_statusDot(new SymbolBadge(4, 0, this)), m_subtitleLabel(new TextLabel(this)),
      m_illustrationView(new IllustrationView(platform.mainQueue,
                                              platform.appearance.reducesMotion() ? IllustrationView::Motion::still
                                                                                  : IllustrationView::Motion::film,
                                              std::move(openFilm), this)),
      m_tagline(new TextLabel(this)), m_reasonCard(nullptr)
{
    buildHeader();
    buildToggle();
    m_reasonCard = new ReasonCardView(cardColours(m_palette), platform.mainQueue, platform.clock, this);
    buildRows();
    applyScale();
    applyPalette();
    update(engine.state.get(), engine.activeSignals.get(), engine.mode.get());
    m_reasonCard->onHeightChange = [this] { layOut(); };
    m_cancellables += platform.appearance.observeChanges([this] { applyPalette(); });
}

StatusPopoverViewController::~StatusPopoverViewController() = default;

void StatusPopoverViewController::buildHeader()
{
    m_productWord->setContent(QStringLiteral("orrinvale"));
    m_headerSymbol->setSymbol(QStringLiteral("ellipsis.circle"));
    m_titleLabel->setContent(QStringLiteral("Your Mac is awake."));
    m_subtitleLabel->setContent(QStringLiteral("Orrin is watching over your Mac."));
    m_tagline->setContent(QStringLiteral("Your Mac stays awake — without interruptions."));
    m_tagline->setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
}

void StatusPopoverViewController::buildToggle()
{
    m_modeToggle = new ModeToggleControl(modeTitles(), this);
    m_modeToggle->onSelect = [this](int index) {
        if (index >= 0 && index < static_cast<int>(allWakeModes.size()) && onModeChanged)
            onModeChanged(allWakeModes[index]);
    };
    setFocusProxy(m_modeToggle);
}

void StatusPopoverViewController::buildRows()
{
    const auto texts = rowTexts();
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        const auto line = i == 0 ? MenuRowButton::Line::none : MenuRowButton::Line::above;
        m_rows[i] = new MenuRowButton(texts[i].title, texts[i].subtitle, texts[i].symbol, line, this);
        m_rows[i]->setCornerRadii(i == 0 ? groupRadius : 0, i + 1 == m_rows.size() ? groupRadius : 0);
    }
    const auto calls = [](std::function<void()>& callback) {
        return [&callback](MenuRowButton&) {
            if (callback)
                callback();
        };
    };
    m_groupOutline = new GroupOutline(this);
    logButton().action = calls(onShowLog);
    settingsButton().action = calls(onShowSettings);
    quitButton().action = calls(onQuit);
}

void StatusPopoverViewController::applyScale()
{
    const PopoverLines lines(m_scale);
    m_productWord->setStyle(textFont(15, QFont::DemiBold), m_palette.primaryText);
    m_titleLabel->setStyle(textFont(18, QFont::DemiBold), m_palette.primaryText);
    m_titleLabel->setLineHeight(lines.title);
    m_subtitleLabel->setStyle(textFont(13), m_palette.secondaryText);
    m_subtitleLabel->setLineHeight(lines.subtitle);
    m_tagline->setStyle(textFont(12), m_palette.secondaryText);
    m_tagline->setLineHeight(lines.tagline);
    m_headerSymbol->setSymbolPoints(std::round(20 * m_scale));
    m_modeToggle->setScale(m_scale);
    m_reasonCard->setScale(m_scale);
    for (auto* row : m_rows)
        row->setScale(m_scale);
}

void StatusPopoverViewController::applyPalette()
{
    m_palette = PopoverPalette::of(lookOf(m_settings));
    m_productWord->setColour(m_palette.primaryText);
    m_headerSymbol->setColours(Qt::transparent, m_palette.secondaryText);
    m_titleLabel->setColour(m_palette.primaryText);
    m_subtitleLabel->setColour(m_palette.secondaryText);
    m_tagline->setColour(m_palette.secondaryText);
    m_statusDot->setColours(statusText(m_engine.state.get(), m_palette).dot, Qt::transparent);
    m_modeToggle->setColours(toggleColours(m_palette));
    m_reasonCard->setColours(cardColours(m_palette));
    for (auto* row : m_rows)
        row->setColours(rowColours(m_palette));
    m_groupOutline->colour = m_palette.separator;
    update();
    if (onColoursChanged)
        onColoursChanged();
}

void StatusPopoverViewController::update(const WakeState& state, const WakeSignals& signals, WakeMode mode)
{
    const auto text = statusText(state, m_palette);
    m_titleLabel->setContent(text.title);
    m_subtitleLabel->setContent(text.subtitle);
    m_statusDot->setColours(text.dot, Qt::transparent);
    for (std::size_t i = 0; i < allWakeModes.size(); ++i)
        if (allWakeModes[i] == mode)
            m_modeToggle->select(static_cast<int>(i));
    const auto fallback = state.isAwake() ? std::optional(state.reason()) : std::nullopt;
    m_reasonCard->update(signals, fallback, !state.isIdle());
    updateIllustration(!state.isIdle());
    layOut();
}

void StatusPopoverViewController::updateIllustration(bool isActive)
{
    if (m_illustrationView->didSetup && m_illustrationView->isActive == isActive)
        return;
    m_illustrationView->isActive = isActive;
    m_illustrationView->didSetup = true;
    m_illustrationView->play(isActive ? QStringLiteral("illustration_awake") : QStringLiteral("illustration_asleep"));
}

void StatusPopoverViewController::layOut()
{
    const auto heightOf = [](TextLabel* label) {
        return [label](int width, int lineHeight) { return label->heightFor(width, lineHeight); };
    };
    PopoverLayout::Needs needs{heightOf(m_titleLabel),
                               heightOf(m_subtitleLabel),
                               heightOf(m_tagline),
                               [this](int width) { return m_modeToggle->trackHeightFor(width); },
                               [this](int width) { return m_reasonCard->heightFor(width); },
                               {}};
    for (std::size_t i = 0; i < m_rows.size(); ++i)
        needs.rows[i] = [row = m_rows[i]](int width) { return row->heightFor(width); };
    const auto layout = PopoverLayout::of(m_scale, needs);
    m_productWord->setGeometry(layout.productWord);
    m_headerSymbol->setGeometry(layout.headerSymbol);
    m_titleLabel->setGeometry(layout.title);
    m_statusDot->setGeometry(layout.dot);
    m_statusDot->setCornerRadius(layout.dot.width() / 2.0);
    m_subtitleLabel->setGeometry(layout.subtitle);
    m_illustrationView->setGeometry(layout.illustration);
    m_tagline->setGeometry(layout.tagline);
    m_modeToggle->setGeometry(layout.toggleTrack.adjusted(-toggleMargin, -toggleMargin, toggleMargin, toggleMargin));
    m_reasonCard->setGeometry(layout.card);
    for (std::size_t i = 0; i < m_rows.size(); ++i)
        m_rows[i]->setGeometry(layout.rows[i]);
    m_groupOutline->setGeometry(layout.rowGroup);
    setFixedSize(PopoverLayout::width, layout.totalHeight);
}

} // namespace orrinvale
