#pragma once

#include "kernel/Session.h"

#include <QByteArray>
#include <QLocalServer>
#include <QObject>
#include <QPointer>

#include <memory>
#include <vector>

class QLocalSocket;

namespace app {

/// Script text from other programs of the same user: `commandPort -name NAME` listens on a local socket.
/// Each line that comes in is executed at the global scope as one undo step; the answer is its result as text (or its
/// error messages, one a line), a line end and a NUL byte.
class CommandPorts : public QObject {
    Q_OBJECT

public:
    /// Registers the commandPort command for as long as this lives.
    explicit CommandPorts(kernel::Session& session);
    ~CommandPorts() override;

private slots:
    void Accept();
    void Read();
    void Leave();

private:
    kernel::Value command(const kernel::ValueList& args);
    QLocalServer* find(const QString& name) const;
    QByteArray answer(const QByteArray& text);

    kernel::Session& m_session;
    std::vector<std::unique_ptr<QLocalServer>> m_servers;
};

}  // namespace app
