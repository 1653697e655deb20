#include "app/CommandPort.h"

#include "support/HostFixture.h"

#include <QCoreApplication>
#include <QLocalServer>
#include <QLocalSocket>

#include <cstring>
#include <functional>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

class CommandPort : public HostFixture {
protected:
    /// Lets the port work until something is so; false when that takes too long.
    static bool waitUntil(const std::function<bool()>& isSo)
    {
        for (int i = 0; i < 500 && !isSo(); ++i) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
        return isSo();
    }
    bool open() { return run("commandPort -n \"" + m_name.toStdString() + "\""); }
    bool isOpen() { return evaluate("commandPort -q -n \"" + m_name.toStdString() + "\"") == kernel::Value(1); }
    void post(const QByteArray& text)
    {
        m_client.connectToServer(m_name);
        ASSERT_TRUE(m_client.waitForConnected());
        m_client.write(text);
        m_client.flush();
    }

    const QString m_name = prefsDir() + "/port";
    app::CommandPorts m_ports{session()};
    QLocalSocket m_client;
};

}  // namespace

TEST_F(CommandPort, AnswersEachLineInTurn)
{
    ASSERT_TRUE(open());
    post("objExists persp\nnoSuchCommand\n");
    QByteArray replies;
    ASSERT_TRUE(waitUntil([&] {
        replies += m_client.readAll();
        return replies.count('\0') == 2;
    }));
    EXPECT_TRUE(replies.startsWith(QByteArray("1\n\0Error: ", 10))) << replies.constData();
}

TEST_F(CommandPort, CanBeClosedByALineOfItsOwn)
{
    ASSERT_TRUE(open());
    post("commandPort -close -n \"" + m_name.toUtf8() + "\"\n");
    ASSERT_TRUE(waitUntil([&] { return m_client.state() == QLocalSocket::UnconnectedState; }));
    EXPECT_FALSE(isOpen());
    EXPECT_TRUE(open()) << "the name is free again";
}

TEST_F(CommandPort, ComesUpOverWhatACrashedProgramLeftBehind)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, m_name.toUtf8().constData(), sizeof address.sun_path - 1);
    const int dead = socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(bind(dead, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    close(dead);
    EXPECT_TRUE(open());
}

TEST_F(CommandPort, LeavesAnotherProgramItsPort)
{
    QLocalServer other;
    ASSERT_TRUE(other.listen(m_name));
    EXPECT_FALSE(open());
    EXPECT_THAT(errors(), testing::Contains(testing::HasSubstr("is already open")));
    m_client.connectToServer(m_name);
    ASSERT_TRUE(m_client.waitForConnected());
    EXPECT_TRUE(waitUntil([&] { return other.hasPendingConnections(); })) << "it still belongs to the other program";
}
