// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "accessibletree.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusInterface>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QElapsedTimer>
#include <QThread>

namespace {

constexpr int patienceMs = 10000;
constexpr int lookAgainMs = 50;
// Bits of the bus's set of states.
constexpr int focusedState = 12;
constexpr int showingState = 25;

const QString sessionBus = QStringLiteral("velkor session");
const QString accessibilityBus = QStringLiteral("velkor accessibility");

/// The address of an accessible object on the bus.
struct Reference
{
    QString service;
    QDBusObjectPath path;
};

QDBusArgument &operator<<(QDBusArgument &argument, const Reference &reference)
{
    argument.beginStructure();
    argument << reference.service << reference.path;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, Reference &reference)
{
    argument.beginStructure();
    argument >> reference.service >> reference.path;
    argument.endStructure();
    return argument;
}

} // namespace

Q_DECLARE_METATYPE(Reference)

namespace {

QDBusMessage ask(const Reference &whom, const QString &interface, const QString &method,
                 const QVariantList &arguments = {})
{
    QDBusMessage question
        = QDBusMessage::createMethodCall(whom.service, whom.path.path(), interface, method);
    question.setArguments(arguments);
    return QDBusConnection(accessibilityBus).call(question, QDBus::Block, patienceMs);
}

QString accessible()
{
    return QStringLiteral("org.a11y.atspi.Accessible");
}

QString propertyOf(const Reference &node, const char *name)
{
    const QDBusMessage answer
        = ask(node, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"),
              { accessible(), QString::fromLatin1(name) });
    return answer.arguments().value(0).value<QDBusVariant>().variant().toString();
}

QVector<Reference> childrenOf(const Reference &node)
{
    const QDBusMessage answer = ask(node, accessible(), QStringLiteral("GetChildren"));
    return qdbus_cast<QVector<Reference>>(answer.arguments().value(0));
}

bool hasState(const QList<uint> &states, int state)
{
    return states.size() > state / 32 && ((states.at(state / 32) >> (state % 32)) & 1U) != 0;
}

void collect(const Reference &node, QVector<AccessibleTree::Node> &found)
{
    AccessibleTree::Node what;
    what.role
        = ask(node, accessible(), QStringLiteral("GetRoleName")).arguments().value(0).toString();
    what.name = propertyOf(node, "Name");
    what.description = propertyOf(node, "Description");
    const auto states = qdbus_cast<QList<uint>>(
        ask(node, accessible(), QStringLiteral("GetState")).arguments().value(0));
    what.isShown = hasState(states, showingState);
    what.isFocused = hasState(states, focusedState);
    found.append(what);
    // The children of a hidden dialog are not reported.
    if (!what.isShown)
        return;
    const auto children = childrenOf(node);
    for (const Reference &child : children)
        collect(child, found);
}

} // namespace

AccessibleTree::AccessibleTree(const QProcessEnvironment &environment)
    : m_environment(environment)
{
    qDBusRegisterMetaType<Reference>();
    qDBusRegisterMetaType<QVector<Reference>>();
    m_environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), m_runtimeFolder.path());
    m_environment.remove(QStringLiteral("AT_SPI_BUS_ADDRESS"));
    m_bus.setProcessEnvironment(m_environment);
    m_bus.start(QStringLiteral("dbus-daemon"),
                { QStringLiteral("--session"), QStringLiteral("--nofork"),
                  QStringLiteral("--print-address") });
    if (!m_bus.waitForStarted() || !m_bus.waitForReadyRead())
        qFatal("no session bus: is dbus-daemon installed?");
    const QString address = QString::fromLatin1(m_bus.readLine().trimmed());
    m_environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), address);
    // Programs report from their start, also without a client.
    m_environment.insert(QStringLiteral("QT_LINUX_ACCESSIBILITY_ALWAYS_ON"), QStringLiteral("1"));

    QDBusConnection::connectToBus(address, sessionBus);
    const QDBusMessage answer
        = QDBusConnection(sessionBus)
              .call(QDBusMessage::createMethodCall(
                  QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"),
                  QStringLiteral("org.a11y.Bus"), QStringLiteral("GetAddress")));
    if (!QDBusConnection::connectToBus(answer.arguments().value(0).toString(), accessibilityBus)
             .isConnected())
        qFatal("no accessibility bus: is at-spi2-core installed?");
}

AccessibleTree::~AccessibleTree()
{
    QDBusConnection::disconnectFromBus(accessibilityBus);
    QDBusConnection::disconnectFromBus(sessionBus);
    m_bus.terminate();
    if (!m_bus.waitForFinished())
        m_bus.kill();
}

QProcessEnvironment AccessibleTree::environment() const
{
    return m_environment;
}

QVector<AccessibleTree::Node> AccessibleTree::nodes(const QString &program) const
{
    QVector<Node> found;
    const Reference registry{ QStringLiteral("org.a11y.atspi.Registry"),
                              QDBusObjectPath(QStringLiteral("/org/a11y/atspi/accessible/root")) };
    const auto programs = childrenOf(registry);
    for (const Reference &one : programs)
        if (propertyOf(one, "Name") == program)
            collect(one, found);
    return found;
}

bool AccessibleTree::waitUntil(const QString &program,
                               const std::function<bool(const QVector<Node> &)> &looksRight) const
{
    QElapsedTimer timer;
    timer.start();
    while (!looksRight(nodes(program))) {
        if (timer.hasExpired(patienceMs))
            return false;
        QThread::msleep(lookAgainMs);
    }
    return true;
}
