// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT

// A message whose arguments have any signature, as it comes out of a connection between two ends without a bus.
#include "fuzz/FuzzInput.h"
#include "fuzz/ScratchFolder.h"
#include "platform/linux/DBus.h"

#include <QCoreApplication>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusServer>
#include <QDBusVirtualObject>
#include <QElapsedTimer>
#include <QPoint>

using namespace orrinvale;

namespace
{

using Texts = QMap<QString, QString>;
using Lists = QList<QStringList>;
using Points = QList<QPoint>;
constexpr int deepest = 6; // containers in one another

QString textOf(FuzzInput& input)
{
    const auto piece = input.piece();
    auto text = QString::fromUtf8(piece.data(), static_cast<qsizetype>(piece.size()));
    return text.remove(QChar::Null); // which no message carries
}

QVariant anyValue(FuzzInput& input, int depth);

QVariant containerOf(FuzzInput& input, int depth)
{
    QVariantMap map;
    QVariantList list;
    const auto kind = input.below(3);
    for (auto count = input.below(4); count > 0 && depth < deepest; --count) {
        const auto value = anyValue(input, depth + 1);
        list << value;
        map.insert(textOf(input), value);
    }
    if (kind == 0)
        return map;
    return kind == 1 ? QVariant(list) : QVariant::fromValue(QDBusVariant(list.value(0, true)));
}

QVariant anyValue(FuzzInput& input, int depth)
{
    switch (input.below(15)) {
    case 0:
        return input.below(2) == 1;
    case 1:
        return input.number<int>();
    case 2:
        return input.number<uint>();
    case 3:
        return input.number<qlonglong>();
    case 4:
        return input.number<qulonglong>();
    case 5:
        return input.number<double>();
    case 6:
        return textOf(input);
    case 7:
        return QStringList{textOf(input), textOf(input)};
    case 8:
        return textOf(input).toUtf8();
    case 9:
        return QVariant::fromValue(Texts{{textOf(input), textOf(input)}});
    case 10:
        return QVariant::fromValue(Lists{{textOf(input)}, {}});
    case 11:
        return QVariant::fromValue(Points(input.below(3)));
    case 12:
        return QVariant::fromValue(QPoint(input.number<int>(), input.number<int>()));
    default:
        return containerOf(input, depth);
    }
}

void readValue(const QVariant& value, int depth)
{
    valueOf<bool>(value);
    valueOf<uint>(value);
    valueOf<double>(value);
    valueOf<QString>(value);
    valueOf<QStringList>(value);
    valueOf<QDBusObjectPath>(value);
    for (const auto* signature : {"a{ss}", "a(ii)", "(ii)", "aas", "av"})
        unreadOf(value, signature);
    if (const auto map = valueOf<QVariantMap>(value); map && depth < deepest) {
        for (const auto& member : *map)
            readValue(member, depth + 1);
    }
}

class Receiver final : public QDBusVirtualObject
{
public:
    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection&) override
    {
        for (int index = 0; index < message.arguments().size() + 1; ++index) {
            mapOf(message, index);
            argumentOf<QString>(message, index);
            readValue(message.arguments().value(index), 0);
        }
        ++received;
        return true;
    }
    int received = 0;
};

// Both ends of one connection within this process.
class Line
{
public:
    Line()
        : m_server(QStringLiteral("unix:dir=") + QString::fromStdString(scratchFolder().string())),
          m_sender(QDBusConnection::connectToPeer(m_server.address(), QStringLiteral("sender")))
    {
        qDBusRegisterMetaType<Texts>();
        qDBusRegisterMetaType<Lists>();
        qDBusRegisterMetaType<Points>();
        QObject::connect(&m_server, &QDBusServer::newConnection, &m_receiver, [this](QDBusConnection connection) {
            connection.registerVirtualObject(QStringLiteral("/"), &m_receiver);
            m_isOpen = true;
        });
        wait([this] { return m_isOpen; });
    }

    void send(const QVariantList& body)
    {
        auto message = QDBusMessage::createMethodCall({}, QStringLiteral("/"), QStringLiteral("org.example.A"),
                                                      QStringLiteral("B"));
        message.setArguments(body);
        const auto before = m_receiver.received;
        if (m_sender.send(message)) // not when it is larger than any message may be
            wait([&] { return m_receiver.received > before; });
    }

private:
    template <typename Condition>
    void wait(Condition condition)
    {
        constexpr int limit = 10'000; // milliseconds
        QElapsedTimer timer;
        timer.start();
        while (!condition() && timer.elapsed() < limit)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
        require(condition(), "a message arrives");
    }

    Receiver m_receiver;
    bool m_isOpen = false;
    QDBusServer m_server;
    QDBusConnection m_sender;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static int count = 1;
    static char name[] = "dbus_values";
    static char* words[] = {name, nullptr};
    static QCoreApplication application(count, words);
    static Line line;
    FuzzInput input(data, size);
    QVariantList body;
    for (int arguments = 0; arguments < 4 && !input.isEmpty(); ++arguments)
        body << anyValue(input, 0);
    line.send(body);
    return 0;
}
