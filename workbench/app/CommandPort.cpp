#include "app/CommandPort.h"

#include "kernel/Syntax.h"

#include <QLocalSocket>

#include <algorithm>

namespace app {

namespace {

constexpr int kProbeTime = 1000;  // milliseconds
const char* const kAnswering = "answering";

/// Whether a running program has that port open. With access options, listening would quietly take it over.
bool isAnswered(const QString& name)
{
    QLocalSocket probe;
    probe.connectToServer(name);
    return probe.waitForConnected(kProbeTime)
        || (probe.error() != QLocalSocket::ConnectionRefusedError
            && probe.error() != QLocalSocket::ServerNotFoundError);
}

}  // namespace

CommandPorts::CommandPorts(kernel::Session& session) : m_session(session)
{
    m_session.commands.add("commandPort", [this](const kernel::ValueList& args) { return command(args); });
}

CommandPorts::~CommandPorts()
{
    m_session.commands.remove("commandPort");
}

kernel::Value CommandPorts::command(const kernel::ValueList& args)
{
    kernel::Syntax syntax;
    syntax.enableQuery();
    syntax.addFlag("n", "name", {kernel::ArgType::String});
    syntax.makeQueryWithFullArgs("name");
    syntax.addFlag("cl", "close");
    const kernel::ParsedArgs parsed = kernel::parsedOrThrow(syntax, args);
    const QString name = QString::fromStdString(parsed.text("name"));
    if (name.isEmpty()) {
        throw kernel::CommandError("commandPort: A name is required");
    }
    QLocalServer* const open = find(name);
    if (parsed.query) {
        return open ? 1 : 0;
    }
    if (parsed.has("close")) {
        if (!open) {
            throw kernel::CommandError("commandPort: " + name.toStdString() + " is not open");
        }
        const auto found = std::find_if(m_servers.begin(), m_servers.end(),
                                        [open](const std::unique_ptr<QLocalServer>& s) { return s.get() == open; });
        // The line that says so may have come in by this very server, whose sockets are its children.
        found->release()->deleteLater();
        m_servers.erase(found);
        open->close();
        return {};
    }
    if (open || isAnswered(name)) {
        throw kernel::CommandError("commandPort: " + name.toStdString() + " is already open");
    }
    auto server = std::make_unique<QLocalServer>();
    server->setSocketOptions(QLocalServer::UserAccessOption);
    QLocalServer::removeServer(name);  // what a crashed program left behind
    if (!server->listen(name)) {
        throw kernel::CommandError("commandPort: " + server->errorString().toStdString());
    }
    connect(server.get(), SIGNAL(newConnection()), this, SLOT(Accept()));
    m_servers.push_back(std::move(server));
    return {};
}

QLocalServer* CommandPorts::find(const QString& name) const
{
    for (const auto& server : m_servers) {
        if (server->serverName() == name || server->fullServerName() == name) {
            return server.get();
        }
    }
    return nullptr;
}

void CommandPorts::Accept()
{
    auto* const server = qobject_cast<QLocalServer*>(sender());
    while (QLocalSocket* socket = server->nextPendingConnection()) {
        connect(socket, SIGNAL(readyRead()), this, SLOT(Read()));
        connect(socket, SIGNAL(disconnected()), this, SLOT(Leave()));
    }
}

void CommandPorts::Read()
{
    // Executing a line may run an event loop (a dialog), in which the socket can go away.
    const QPointer<QLocalSocket> socket = qobject_cast<QLocalSocket*>(sender());
    if (!socket || socket->property(kAnswering).toBool()) {
        return;  // a line that comes meanwhile waits for the one before it
    }
    socket->setProperty(kAnswering, true);
    while (socket && socket->canReadLine()) {
        const QByteArray reply = answer(socket->readLine().trimmed());
        if (socket) {
            socket->write(reply);
            socket->flush();
        }
    }
    if (socket) {
        socket->setProperty(kAnswering, false);
        if (socket->state() == QLocalSocket::UnconnectedState) {
            socket->deleteLater();
        }
    }
}

void CommandPorts::Leave()
{
    // While a line of it is answered (a dialog may be open), Read is still inside the socket and sees to it later.
    if (!sender()->property(kAnswering).toBool()) {
        sender()->deleteLater();
    }
}

QByteArray CommandPorts::answer(const QByteArray& text)
{
    std::string errors;
    const int listener = m_session.output.addListener([&errors](kernel::Severity severity, const std::string& line) {
        if (severity == kernel::Severity::Error) {
            errors += "Error: " + line + "\n";
        }
    });
    const kernel::ScriptResult result = m_session.script().execute(text.toStdString(), false, true);
    m_session.output.removeListener(listener);
    std::string reply = result.ok ? kernel::toText(result.value) + "\n" : errors;
    reply.push_back('\0');
    return QByteArray(reply.data(), int(reply.size()));
}

}  // namespace app
