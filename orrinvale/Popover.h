// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "orrinvale/PopoverPlacement.h"

#include <QWidget>

#include <functional>
#include <memory>

namespace orrinvale
{

class LayerSurface;
class OverlayScrollArea;

// The rounded window that carries the popover's content, above all other windows. It closes on Escape and on a click
// elsewhere. The content, or its focus proxy, has the focus from the start. Its owner deletes it after it has closed.
// Main thread.
class Popover final : public QWidget
{
    Q_OBJECT

public:
    struct Colours {
        QColor background;
        QColor border;
    };
    // Whether there is a shadow and smooth corners, which something must compose.
    enum class Composition { none, composited };

    // Takes the content, whose width is the popover's; what is higher than the popover or the screen scrolls.
    Popover(QWidget* content, const Colours& colours, Composition composition, AvailableGeometry availableGeometry);
    ~Popover() override;

    void setColours(const Colours& colours);
    void closeByOwner();
    // At once, or on Wayland when the compositor has given it its place.
    void showAt(const StatusItemAnchor& anchor);
    void setVisible(bool isVisible) override;
    // The visible part, without the shadow around it; in this window's coordinates.
    QRect body() const;

    enum class Closing { elsewhere, escape, owner };
    // Called once, after the popover was closed.
    std::function<void(Closing)> onClose;

Q_SIGNALS:
    void framePainted(); // after each painting

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void openLayer(const StatusItemAnchor& anchor);
    void showInDesktop(const StatusItemAnchor& anchor);
    void showOverDesktop();
    void present();
    void end(Closing closing);
    void tellClosed();
    void fitHeight(int available);
    void applyMask();
    void paintShadow(QPainter& painter);

    QWidget* m_content;
    OverlayScrollArea* m_scrollArea;
    Colours m_colours;
    bool m_isComposited;
    int m_shadow;                 // its width on each side
    bool m_coversDesktop = false; // in whose upper right corner the body then is
    std::unique_ptr<LayerSurface> m_layer;
    AvailableGeometry m_availableGeometry;
    int m_availableHeight = 0; // of the screen, in which no panel is
    Closing m_closing = Closing::elsewhere;
};

} // namespace orrinvale
