#include "support/LiveWorkbench.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>

#include <utility>

namespace support {

namespace {

QStringList movement(const QPoint& to)
{
    return {"mousemove", QString::number(to.x()), QString::number(to.y())};
}

QStringList pause(int ms)
{
    return {"sleep", QString::number(ms / 1000.0)};
}

QStringList movements(const QVector<QPoint>& way, int stepMs)
{
    QStringList steps;
    for (const QPoint& point : way) {
        steps += movement(point) + pause(stepMs);
    }
    return steps;
}

}  // namespace

LiveWorkbench::LiveWorkbench(const QString& program, const QStringList& arguments)
{
    static int started = 0;
    const QString port = QString("lumisketch-%1-%2").arg(QCoreApplication::applicationPid()).arg(++started);
    m_process.setProcessChannelMode(QProcess::MergedChannels);
    m_process.start(program, arguments + QStringList{"-command", QString("commandPort -name \"%1\"").arg(port)});
    if (!m_process.waitForStarted()) {
        return;
    }
    // There is nothing to wait on before the port exists, so it is asked for until it is there.
    QElapsedTimer waited;
    waited.start();
    while (waited.elapsed() < 60000 && m_process.state() == QProcess::Running) {
        m_socket.connectToServer(port);
        if (m_socket.waitForConnected(100)) {
            break;
        }
        m_process.waitForReadyRead(50);
        m_output += m_process.readAll();
    }
    settle();
}

LiveWorkbench::~LiveWorkbench()
{
    if (m_held != PointerButton::None) {
        QProcess::execute("xdotool", release());  // the button outlives this program
    }
    m_socket.abort();
    m_process.kill();
    m_process.waitForFinished();
}

QString LiveWorkbench::run(const QString& text, int timeoutMs)
{
    post(text);
    QByteArray replies;
    QElapsedTimer waited;
    waited.start();
    while (replies.count('\0') < m_unanswered) {
        const int left = timeoutMs - int(waited.elapsed());
        if (left <= 0 || !m_socket.waitForReadyRead(left)) {
            m_unanswered -= replies.count('\0');
            return QString("Error: no answer to: %1").arg(text);
        }
        replies += m_socket.readAll();
    }
    m_unanswered = 0;
    replies.chop(1);
    return QString::fromUtf8(replies.mid(replies.lastIndexOf('\0') + 1)).trimmed();
}

void LiveWorkbench::post(const QString& text)
{
    QByteArray lineText = text.toUtf8();
    lineText.replace('\n', ' ');
    m_socket.write(lineText + '\n');
    m_socket.flush();
    ++m_unanswered;
}

bool LiveWorkbench::waitForEnd(int timeoutMs)
{
    return m_process.state() == QProcess::NotRunning || m_process.waitForFinished(timeoutMs);
}

void LiveWorkbench::settle()
{
    letTurn();
    run("refresh -force");
}

void LiveWorkbench::letTurn()
{
    if (!isRunning()) {
        return;
    }
    // Pointer and key events come by way of the X server, the port's lines do not. Asking that server for the pointer
    // brings in all events before the answer; the next line follows their handling, the last one what that queued.
    for (const char* turn : {"getPanel -underPointer", "", ""}) {
        run(turn);
    }
}

QRect LiveWorkbench::viewRect(const QString& panel)
{
    const QString where = panel.isEmpty() ? QString() : QString(" -panel \"%1\"").arg(panel);
    return askRect("workbenchView -q -screenRect" + where);
}

QRect LiveWorkbench::controlRect(const QString& name)
{
    return askRect(QString("workbenchControl -q -screenRect \"%1\"").arg(name));
}

QRect LiveWorkbench::menuEntryRect(const QString& label)
{
    return askRect(QString("workbenchControl -q -screenRect -menuEntry \"%1\"").arg(label));
}

QRect LiveWorkbench::askRect(const QString& query)
{
    const QStringList numbers = run(query).split(' ');
    const QRect rect = numbers.size() == 4
                         ? QRect(numbers[0].toInt(), numbers[1].toInt(), numbers[2].toInt(), numbers[3].toInt())
                         : QRect();
    return rect.isEmpty() ? QRect() : rect;
}

void LiveWorkbench::pointer(const QStringList& arguments)
{
    QProcess::execute("xdotool", arguments);
    letTurn();
}

void LiveWorkbench::pressAt(const QPoint& point, PointerButton button)
{
    m_held = button;
    pointer(movement(point) + QStringList{"mousedown", QString::number(int(button))});
}

QStringList LiveWorkbench::release()
{
    return {"mouseup", QString::number(int(std::exchange(m_held, PointerButton::None)))};
}

void LiveWorkbench::drag(const QVector<QPoint>& path, int stepMs, int restMs, PointerButton button)
{
    if (path.isEmpty()) {
        return;
    }
    pressAt(path.first(), button);
    pointer(pause(stepMs) + movements(path.mid(1), stepMs) + pause(restMs) + release());
    settle();
}

void LiveWorkbench::click(const QPoint& point)
{
    clickControl(point);
    settle();
}

void LiveWorkbench::clickControl(const QPoint& point)
{
    pointer(movement(point) + QStringList{"click", "1"});
}

void LiveWorkbench::rightClick(const QPoint& point)
{
    pointer(movement(point) + QStringList{"click", "3"});
}

void LiveWorkbench::hold(const QPoint& from, const QPoint& to, PointerButton button)
{
    pressAt(from, button);
    moveTo(to);
}

void LiveWorkbench::letGo()
{
    pointer(release());
    settle();
}

void LiveWorkbench::strokeUnheard(const QVector<QPoint>& way, const QVector<QPoint>& after, int stepMs)
{
    QProcess::execute("xdotool", movements(way, stepMs) + release() + movements(after, stepMs));
}

void LiveWorkbench::moveTo(const QPoint& point)
{
    pointer(movement(point));
    settle();
}

void LiveWorkbench::key(const QString& chord)
{
    pointer({"key", chord});
    settle();
}

void LiveWorkbench::keyDown(const QString& name)
{
    pointer({"keydown", name});
}

void LiveWorkbench::keyUp(const QString& name)
{
    pointer({"keyup", name});
}

QImage LiveWorkbench::screenshot(const QRect& area)
{
    settle();
    QScreen* const screen = QGuiApplication::primaryScreen();
    return screen
        ->grabWindow(0, area.x(), area.y(), area.isNull() ? -1 : area.width(), area.isNull() ? -1 : area.height())
        .toImage()
        .convertToFormat(QImage::Format_RGB32);
}

QString LiveWorkbench::output()
{
    m_process.waitForReadyRead(10);
    m_output += m_process.readAll();
    return QString::fromUtf8(m_output);
}

}  // namespace support
