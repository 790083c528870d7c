// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Lifetime.h"
#include "platform/FilePanels.h"
#include "platform/linux/DBus.h"

#include <map>
#include <memory>

namespace orrinvale
{

// The desktop's own file panels, through org.freedesktop.portal.FileChooser. Where the desktop has none, or does not
// answer, the ones it was given are asked. One panel at a time of each kind is usual, any number works.
class PortalFilePanels final : public QObject, public FilePanels
{
    Q_OBJECT

public:
    PortalFilePanels(const QDBusConnection& sessionBus, FilePanels& otherwise);

    [[nodiscard]] Cancellable chooseFolder(const FolderRequest& request, Answer answer) override;
    [[nodiscard]] Cancellable chooseFile(const SaveRequest& request, Answer answer) override;

private:
    using Otherwise = std::function<Cancellable(Answer)>;
    Cancellable ask(const QString& method, const QString& title, WindowId window, QVariantMap options, Answer answer,
                    Otherwise otherwise);
    void askTheOthers(int number, const Otherwise& otherwise);
    void finish(int number, const QDBusMessage& response);
    void answer(int number, const std::optional<std::filesystem::path>& chosen);
    void takeBack(int number);
    void portalGone();

    struct Request {
        std::unique_ptr<DBusSignal> response;
        Answer answer;
        Cancellable otherwise;   // the question that the other panels were asked
        bool isAccepted = false; // by the portal
    };

    QDBusConnection m_bus;
    FilePanels& m_otherwise;
    int m_lastNumber = 0;
    std::map<int, Request> m_open;
    QDBusServiceWatcher m_portal;
    Lifetime m_lifetime;
};

} // namespace orrinvale
