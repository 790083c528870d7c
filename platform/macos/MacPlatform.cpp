// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/macos/MacPlatform.h"

#include "platform/macos/Agent.h"
#include "platform/macos/MediaHardware.h"

#include <QScreen>

namespace orrinvale
{

MacPlatform::MacPlatform(const Windows& windows) : m_filePanels(windows.filePanels) {}

MacPlatform::Parts::Parts()
    : mediaDevices(mainQueue, background, {isAnyCameraInUse, isAnyInputDeviceRunning}), responsiveness(stayResponsive())
{
}

QRect MacPlatform::partWithoutPanels(const QScreen& screen)
{
    return screen.availableGeometry();
}

} // namespace orrinvale
