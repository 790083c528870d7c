// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/UserNotifications.h"
#include "platform/linux/DBus.h"

#include <filesystem>
#include <map>
#include <optional>

namespace orrinvale
{

// The desktop's notification daemon. Each identifier has one notification: what the daemon called it is remembered, for
// replacing and closing, until it is closed or the daemon goes. It also stands in a file, so that what a killed process
// left standing is withdrawn at the next start. Main thread.
class LinuxUserNotifications final : public QObject, public UserNotifications
{
    Q_OBJECT

public:
    // Without a file nothing is remembered beyond the process.
    explicit LinuxUserNotifications(const QDBusConnection& sessionBus,
                                    std::optional<std::filesystem::path> record = std::nullopt);

    // Nobody needs to be asked here; withdraws what an earlier process left.
    void requestAuthorization() override;
    void post(const UserNotification& notification) override;
    void removeDelivered(const std::vector<std::string>& identifiers) override;
    // Waits until what was said has left this process, at most until `deadline`: before the end.
    void flush(const QDeadlineTimer& deadline);

private:
    struct Delivery {
        std::optional<UserNotification> next; // waits for its turn
        quint32 deliveredId = 0;              // the daemon's name for it; 0: none
        bool isOnItsWay = false;
        bool closeOnArrival = false;
    };
    enum class Markup { Unknown, Asked, Plain, Supported };

    void send(const std::string& identifier);
    void askForMarkup();
    void close(quint32 id);
    void forgetDaemon();
    void keepRecord();
    QString bodyOf(const UserNotification& notification) const;

    QDBusConnection m_bus;
    std::map<std::string, Delivery> m_notifications; // by identifier
    Markup m_markup = Markup::Unknown;
    quint32 m_daemon = 0; // counts the daemons seen: a reply of an earlier one is none of the present one's
    QDBusServiceWatcher m_watcher;
    DBusSignal m_closed;
    const std::optional<std::filesystem::path> m_record;
    QString m_daemonName; // the one that delivered, as the bus numbers it
};

} // namespace orrinvale
