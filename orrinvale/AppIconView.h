// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Lifetime.h"

#include <QPixmap>
#include <QWidget>

#include <optional>
#include <string>

namespace orrinvale
{

struct InstalledApplication;
struct Platform;

// The icon of the application with a bundle identifier, or a symbol in the palette's text colour when there is no such
// application. The application is looked up in the background; until then nothing shows.
class AppIconView final : public QWidget
{
    Q_OBJECT

public:
    AppIconView(std::string bundleID, const Platform& platform, QWidget* parent);

    const std::string& bundleID() const { return m_bundleID; }
    // Null while it shows the symbol, or nothing yet.
    QPixmap icon();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void lookUp(const Platform& platform);
    void show(const std::optional<InstalledApplication>& application);

    std::string m_bundleID;
    std::optional<QString> m_iconName; // once looked up
    QPixmap m_pixmap;
    int m_pixmapSize = 0; // that it was loaded for
    Lifetime m_lifetime;
};

} // namespace orrinvale
