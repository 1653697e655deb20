#pragma once

#include <QString>
#include <QVector>

#include <string>

namespace app {

/// A text that is kept in the preferences folder between runs, with a letter that says what it is.
struct KeptText {
    char mark;  ///< a letter
    QString text;
};

/// What a file holds, in order; of a larger file the last `mostBytes`. A file that is not there holds nothing.
QVector<KeptText> readKeptTexts(const std::string& path, qint64 mostBytes);
/// Replaces the file by the last of the texts, as many as fit into `mostBytes`. Throws kernel::CommandError with the
/// reason; the file is then what it was.
void writeKeptTexts(const std::string& path, const QVector<KeptText>& texts, qint64 mostBytes);

}  // namespace app
