// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Cancellable.h"
#include "kit/SoftShadow.h"
#include "kit/WindowPalette.h"

#include <QPointer>
#include <QWidget>

namespace orrinvale
{

class Appearance;
class MainQueue;

// A card over the content of a window, which is dimmed and kept from the mouse. It fades in, and when it is dismissed
// gives the focus back, fades out and deletes itself. Main thread.
class Sheet : public QWidget
{
    Q_OBJECT

public:
    // Of the card, in the content's coordinates.
    QRect cardRect() const;
    // From 0, invisible, to 1.
    double opacity() const { return m_opacity; }

protected:
    Sheet(MainQueue& mainQueue, const Appearance& appearance, const QSize& largestCard, QWidget* content);
    ~Sheet() override;

    // To be called once, when everything is on the card.
    void present();
    void dismiss();
    void setLook(Look look);
    // The parent of everything on it.
    QWidget& card() const;
    // Places what is on the card, after its size changed.
    virtual void layOutCard() = 0;

    bool eventFilter(QObject* object, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    class Card;
    enum class Fade { in, out };

    void giveFocusBack();
    void fade(Fade direction);
    void showFade(int step);
    void setOpacity(double opacity);

    MainQueue& m_mainQueue;
    const Appearance& m_appearance;
    QSize m_largestCard;
    Card* m_card;
    Look m_look = Look::light;
    QPointer<QWidget> m_focusBefore;
    Qt::FocusReason m_focusReason;
    SoftShadow m_shadow;
    double m_opacity = 1;
    int m_fadeStep = 0;
    Cancellable m_fade;
};

} // namespace orrinvale
