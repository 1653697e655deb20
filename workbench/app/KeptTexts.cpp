#include "app/KeptTexts.h"

#include "kernel/AtomicFile.h"

#include <QFile>

namespace app {

namespace {

// A text starts with its mark at the beginning of a line; a space stands before each further line of it.
constexpr char kFurther = ' ';

QByteArray record(const KeptText& kept)
{
    return kept.mark + kept.text.toUtf8().replace('\n', QByteArray("\n") + kFurther) + '\n';
}

}  // namespace

QVector<KeptText> readKeptTexts(const std::string& path, qint64 mostBytes)
{
    QFile file(QString::fromStdString(path));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    if (file.size() > mostBytes) {
        file.seek(file.size() - mostBytes);
        file.readLine();  // the rest of a line
    }
    QVector<KeptText> texts;
    while (!file.atEnd()) {
        QByteArray line = file.readLine();
        if (line.endsWith('\n')) {
            line.chop(1);
        }
        const QString text = QString::fromUtf8(line.mid(1));
        if (line.startsWith(kFurther) && !texts.isEmpty()) {
            texts.last().text += '\n' + text;
        } else if (!line.isEmpty() && !line.startsWith(kFurther)) {
            texts.append({line[0], text});
        }
    }
    return texts;
}

void writeKeptTexts(const std::string& path, const QVector<KeptText>& texts, qint64 mostBytes)
{
    QVector<QByteArray> records;
    qint64 size = 0;
    for (auto text = texts.rbegin(); text != texts.rend(); ++text) {
        records.append(record(*text));
        size += records.last().size();
        if (size > mostBytes) {
            records.removeLast();
            break;
        }
    }
    kernel::AtomicFile file(path);
    for (auto bytes = records.rbegin(); bytes != records.rend(); ++bytes) {
        file.stream().write(bytes->constData(), bytes->size());
    }
    file.commit();
}

}  // namespace app
