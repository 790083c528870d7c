// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/OnboardingView.h"

#include "kit/FocusRing.h"
#include "kit/OverlayScrollArea.h"
#include "kit/TextLabel.h"
#include "kit/WindowButton.h"
#include "kit/WindowText.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>

namespace orrinvale
{

namespace
{

constexpr auto inset = 40;
constexpr auto headingTop = 48;
constexpr auto headingToIntroduction = 4;
constexpr auto introductionToPoints = 32;
constexpr auto pointsToButton = 16;
constexpr auto buttonHeight = 36;
constexpr auto buttonRadius = 8;
constexpr auto paddingBottom = 32;
constexpr auto fadeHeight = 28;

// Lets what scrolls behind it fade into the window's ground.
class Fade final : public QWidget
{
public:
    using QWidget::QWidget;
    QColor ground;

protected:
    void paintEvent(QPaintEvent*) override
    {
        QLinearGradient gradient(0, 0, 0, height());
        gradient.setColorAt(0, withAlpha(ground, 0));
        gradient.setColorAt(1, ground);
        QPainter(this).fillRect(rect(), gradient);
    }
};

// How a key scrolls what does not fit: nothing but the button can have the focus.
QAbstractSlider::SliderAction scrollingOf(int key)
{
    switch (key) {
    case Qt::Key_Up:
        return QAbstractSlider::SliderSingleStepSub;
    case Qt::Key_Down:
        return QAbstractSlider::SliderSingleStepAdd;
    case Qt::Key_PageUp:
        return QAbstractSlider::SliderPageStepSub;
    case Qt::Key_PageDown:
        return QAbstractSlider::SliderPageStepAdd;
    case Qt::Key_Home:
        return QAbstractSlider::SliderToMinimum;
    case Qt::Key_End:
        return QAbstractSlider::SliderToMaximum;
    default:
        return QAbstractSlider::SliderNoAction;
    }
}

} // namespace

const std::array<PointList::Point, 3>& OnboardingView::points()
{
    static const std::array<PointList::Point, 3> points{{
        {QStringLiteral("bolt.fill"), QStringLiteral("Keeps your Mac awake when it matters"),
         QStringLiteral("orrinvale watches for active downloads, sustained CPU load (builds, renders, exports), and "
                        "calls in apps like Zoom or Teams — and only then prevents sleep.")},
        {QStringLiteral("camera.fill"), QStringLiteral("Briefly checks camera & mic state"),
         QStringLiteral("To confirm a call is actually active (not just an app sitting in the background), orrinvale "
                        "checks whether your camera or mic is in use. Nothing is recorded, read, or sent anywhere.")},
        {QStringLiteral("battery.25"), QStringLiteral("Battery-safe by default"),
         // A fixed number on purpose, whatever the threshold is now.
         QStringLiteral("orrinvale automatically pauses itself below 20% battery while unplugged, so it won't drain "
                        "your Mac or let it overheat in a bag. Adjust this anytime in Settings.")},
    }};
    return points;
}

OnboardingView::OnboardingView()
    : m_colours(&WindowPalette::of(Look::light)), m_heading(new TextLabel(this)), m_introduction(new TextLabel(this)),
      m_scrollArea(new OverlayScrollArea(this)), m_points(new PointList(points(), nullptr)), m_fade(new Fade(this)),
      m_button(new WindowButton(QStringLiteral("Get Started"), WindowButton::Kind::filled, this))
{
    m_heading->setContent(QStringLiteral("Welcome to orrinvale"));
    m_introduction->setContent(QStringLiteral("A few things worth knowing before you start."));
    m_scrollArea->setWidget(m_points);
    m_points->setAutoFillBackground(false);
    m_fade->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_button->setRadius(buttonRadius);
    setFocusProxy(m_button);
    auto* scrollBar = m_scrollArea->verticalScrollBar();
    QObject::connect(scrollBar, &QScrollBar::valueChanged, this, [this] { placeFade(); });
    QObject::connect(scrollBar, &QScrollBar::rangeChanged, this, [this] { placeFade(); });
    QObject::connect(m_button, &QAbstractButton::clicked, this, [this] {
        if (onDone)
            onDone();
    });
}

void OnboardingView::applyTheme(Look look)
{
    m_colours = &WindowPalette::of(look);
    applyTextStyle(*m_heading, windowText::welcome, m_colours->primaryText);
    applyTextStyle(*m_introduction, windowText::rowTitle, m_colours->quietText);
    m_scrollArea->setThumbColour(m_colours->scrollThumb);
    m_points->applyTheme(*m_colours);
    static_cast<Fade*>(m_fade)->ground = m_colours->window;
    m_button->setColours(*m_colours);
    layOut();
    update();
}

void OnboardingView::layOut()
{
    const auto inner = width() - 2 * inset;
    const auto heading = m_heading->heightFor(inner, windowText::welcome.line());
    m_heading->setGeometry(inset, headingTop, inner, heading);
    const auto introductionTop = headingTop + heading + headingToIntroduction;
    const auto introduction = m_introduction->heightFor(inner, windowText::rowTitle.line());
    m_introduction->setGeometry(inset, introductionTop, inner, introduction);
    const auto button = std::max(buttonHeight, m_button->shownSize().height());
    const auto buttonTop = height() - paddingBottom - button;
    placeShown(*m_button, QRect(inset, buttonTop, inner, button));
    const auto pointsTop = introductionTop + introduction + introductionToPoints;
    const auto shown = buttonTop - pointsToButton - pointsTop;
    m_scrollArea->setGeometry(inset, pointsTop, inner, shown);
    m_points->resize(inner, m_points->heightFor(inner));
    placeFade();
}

// It covers no more than is still to come.
void OnboardingView::placeFade()
{
    const auto shown = m_scrollArea->geometry();
    const auto hidden = m_points->height() - m_scrollArea->verticalScrollBar()->value() - shown.height();
    const auto fade = std::clamp(hidden, 0, fadeHeight);
    m_fade->setGeometry(shown.left(), shown.top() + shown.height() - fade, shown.width(), fade);
    m_fade->setVisible(fade > 0);
}

void OnboardingView::keyPressEvent(QKeyEvent* event)
{
    if (const auto scrolling = scrollingOf(event->key()))
        m_scrollArea->verticalScrollBar()->triggerAction(scrolling);
    else
        event->ignore();
}

void OnboardingView::resizeEvent(QResizeEvent*)
{
    layOut();
}

void OnboardingView::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), m_colours->window);
}

} // namespace orrinvale
