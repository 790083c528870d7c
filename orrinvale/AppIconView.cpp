// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/AppIconView.h"

#include "base/MainQueue.h"
#include "base/SerialQueue.h"
#include "orrinvale/AppIcons.h"
#include "platform/InstalledApplications.h"
#include "platform/Platform.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace orrinvale
{

AppIconView::AppIconView(std::string bundleID, const Platform& platform, QWidget* parent)
    : QWidget(parent), m_bundleID(std::move(bundleID))
{
    lookUp(platform);
}

void AppIconView::lookUp(const Platform& platform)
{
    platform.applicationFiles.post(
        [&installed = platform.installedApplications, &queue = platform.mainQueue, bundleID = m_bundleID,
         show = m_lifetime.unlessGone([this](const auto& application) { this->show(application); })] {
            if (show.isGone())
                return;
            queue.post([show, application = installed.find(bundleID)] { show(application); });
        });
}

void AppIconView::show(const std::optional<InstalledApplication>& application)
{
    m_iconName = application ? QString::fromStdString(application->iconName) : QString();
    m_pixmapSize = 0;
    update();
}

QPixmap AppIconView::icon()
{
    const auto size = std::min(width(), height());
    const auto pixels = static_cast<int>(std::lround(size * devicePixelRatioF()));
    if (m_iconName && pixels != m_pixmapSize) {
        m_pixmapSize = pixels;
        m_pixmap = appIconPixmap(*m_iconName, size, devicePixelRatioF());
    }
    return m_pixmap;
}

void AppIconView::paintEvent(QPaintEvent*)
{
    if (!m_iconName)
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintAppIcon(painter, rect(), icon(), palette().color(QPalette::WindowText));
}

} // namespace orrinvale
