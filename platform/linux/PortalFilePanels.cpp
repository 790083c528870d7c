// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/PortalFilePanels.h"

#include "base/UUID.h"

#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QFile>
#include <QGuiApplication>
#include <QUrl>

#include <chrono>
#include <vector>

namespace orrinvale
{

// The portal's a(sa(us)): a name, and patterns (0) or MIME types (1).
struct PortalFilterRule {
    uint kind;
    QString text;
};
struct PortalFilter {
    QString name;
    QList<PortalFilterRule> rules;
};

static QDBusArgument& operator<<(QDBusArgument& argument, const PortalFilterRule& rule)
{
    argument.beginStructure();
    argument << rule.kind << rule.text;
    argument.endStructure();
    return argument;
}
static const QDBusArgument& operator>>(const QDBusArgument& argument, PortalFilterRule& rule)
{
    argument.beginStructure();
    argument >> rule.kind >> rule.text;
    argument.endStructure();
    return argument;
}
static QDBusArgument& operator<<(QDBusArgument& argument, const PortalFilter& filter)
{
    argument.beginStructure();
    argument << filter.name << filter.rules;
    argument.endStructure();
    return argument;
}
static const QDBusArgument& operator>>(const QDBusArgument& argument, PortalFilter& filter)
{
    argument.beginStructure();
    argument >> filter.name >> filter.rules;
    argument.endStructure();
    return argument;
}

} // namespace orrinvale

Q_DECLARE_METATYPE(orrinvale::PortalFilterRule)
Q_DECLARE_METATYPE(orrinvale::PortalFilter)

namespace orrinvale
{

namespace
{

const auto service = QStringLiteral("org.freedesktop.portal.Desktop");
const auto path = QStringLiteral("/org/freedesktop/portal/desktop");
const auto fileChooser = QStringLiteral("org.freedesktop.portal.FileChooser");
const auto requestInterface = QStringLiteral("org.freedesktop.portal.Request");
constexpr auto patience = std::chrono::milliseconds(3000); // until a portal that says nothing counts as missing
constexpr uint mimeType = 1;

// As the portal names a parent; Wayland's needs an export that is not worth a protocol of its own here.
QString parentName(FilePanels::WindowId window)
{
    const auto isX11 = QGuiApplication::platformName() == QLatin1String("xcb");
    return isX11 && window ? QStringLiteral("x11:%1").arg(window, 0, 16) : QString();
}

// It cannot be guessed: whoever knows it is the portal.
QString tokenOf(int number)
{
    static const auto secret = QString::fromStdString(UUID::random().text()).remove(u'-');
    return QStringLiteral("orrinvale%1_%2").arg(secret).arg(number);
}

// The path that a request of ours will have, so that its answer cannot be missed.
QString requestPath(const QDBusConnection& bus, int number)
{
    auto sender = bus.baseService().mid(1);
    sender.replace(QLatin1Char('.'), QLatin1Char('_'));
    return QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2").arg(sender, tokenOf(number));
}

std::optional<std::filesystem::path> chosenPath(const QDBusMessage& response)
{
    constexpr uint success = 0;
    if (argumentOf<uint>(response) != success)
        return std::nullopt;
    const auto uris = memberOf<QStringList>(mapOf(response, 1), QStringLiteral("uris")).value_or(QStringList());
    const auto file = uris.isEmpty() ? QString() : QUrl(uris.front()).toLocalFile();
    return file.isEmpty() ? std::nullopt : std::optional<std::filesystem::path>(QFile::encodeName(file).toStdString());
}

} // namespace

PortalFilePanels::PortalFilePanels(const QDBusConnection& sessionBus, FilePanels& otherwise)
    : m_bus(sessionBus), m_otherwise(otherwise),
      m_portal(service, sessionBus, QDBusServiceWatcher::WatchForUnregistration)
{
    QObject::connect(&m_portal, &QDBusServiceWatcher::serviceUnregistered, this, &PortalFilePanels::portalGone);
    qDBusRegisterMetaType<PortalFilterRule>();
    qDBusRegisterMetaType<QList<PortalFilterRule>>();
    qDBusRegisterMetaType<PortalFilter>();
    qDBusRegisterMetaType<QList<PortalFilter>>();
}

Cancellable PortalFilePanels::chooseFolder(const FolderRequest& request, Answer answer)
{
    QVariantMap options;
    options[QStringLiteral("directory")] = true;
    options[QStringLiteral("accept_label")] = QString::fromStdString(request.prompt);
    // A byte array that ends with a zero.
    options[QStringLiteral("current_folder")] = QByteArray(request.folder.c_str(), request.folder.native().size() + 1);
    return ask(QStringLiteral("OpenFile"), QStringLiteral("Downloads Folder"), request.window, options, answer,
               [this, request](Answer then) { return m_otherwise.chooseFolder(request, std::move(then)); });
}

Cancellable PortalFilePanels::chooseFile(const SaveRequest& request, Answer answer)
{
    const PortalFilter filter{QString::fromStdString(request.contentType),
                              {{mimeType, QString::fromStdString(request.contentType)}}};
    QVariantMap options;
    options[QStringLiteral("current_name")] = QString::fromStdString(request.fileName);
    options[QStringLiteral("filters")] = QVariant::fromValue(QList<PortalFilter>{filter});
    return ask(QStringLiteral("SaveFile"), QStringLiteral("Export"), request.window, options, answer,
               [this, request](Answer then) { return m_otherwise.chooseFile(request, std::move(then)); });
}

Cancellable PortalFilePanels::ask(const QString& method, const QString& title, WindowId window, QVariantMap options,
                                  Answer answer, Otherwise otherwise)
{
    const auto number = ++m_lastNumber;
    options[QStringLiteral("handle_token")] = tokenOf(number);
    options[QStringLiteral("modal")] = true;
    // Whoever sends it: to name the portal would wait for the bus to say who that is.
    m_open[number] = {std::make_unique<DBusSignal>(m_bus, QString(), requestPath(m_bus, number), requestInterface,
                                                   QStringLiteral("Response"),
                                                   [this, number](const auto& response) { finish(number, response); }),
                      std::move(answer),
                      {},
                      false};
    const auto call = QDBusMessage::createMethodCall(service, path, fileChooser, method)
                      << parentName(window) << title << options;
    auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call, static_cast<int>(patience.count())), this);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, this,
                     [this, number, otherwise = std::move(otherwise)](QDBusPendingCallWatcher* finished) {
                         finished->deleteLater();
                         if (finished->isError())
                             askTheOthers(number, otherwise);
                         else if (const auto request = m_open.find(number); request != m_open.end())
                             request->second.isAccepted = true;
                     });
    return Cancellable(m_lifetime.unlessGone([this, number] { takeBack(number); }));
}

void PortalFilePanels::finish(int number, const QDBusMessage& response)
{
    // In a turn of its own: the signal's handler is running, which may not be destroyed by what the answer does.
    QMetaObject::invokeMethod(
        this, [this, number, chosen = chosenPath(response)] { answer(number, chosen); }, Qt::QueuedConnection);
}

void PortalFilePanels::askTheOthers(int number, const Otherwise& otherwise)
{
    if (const auto request = m_open.find(number); request != m_open.end())
        request->second.otherwise = otherwise([this, number](const auto& chosen) { answer(number, chosen); });
}

// Its panels went with it, and no answer will come.
void PortalFilePanels::portalGone()
{
    std::vector<int> numbers;
    for (const auto& [number, request] : m_open)
        if (request.isAccepted)
            numbers.push_back(number);
    for (const auto number : numbers)
        answer(number, std::nullopt);
}

void PortalFilePanels::answer(int number, const std::optional<std::filesystem::path>& chosen)
{
    auto request = m_open.extract(number);
    if (request.empty())
        return;
    request.mapped().otherwise.detach(); // its own answer is running
    request.mapped().answer(chosen);
}

void PortalFilePanels::takeBack(int number)
{
    const auto request = m_open.extract(number);
    if (request.empty() || request.mapped().otherwise)
        return;
    m_bus.send(
        QDBusMessage::createMethodCall(service, requestPath(m_bus, number), requestInterface, QStringLiteral("Close")));
}

} // namespace orrinvale
