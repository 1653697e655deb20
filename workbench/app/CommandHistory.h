#pragma once

#include <QStringList>

namespace app {

/// Script texts the user ran, the oldest first; shared by all that run them. Old ones fall off.
class CommandHistory {
public:
    /// A text equal to the last one is not taken twice, a very long one not at all.
    void add(const QString& text);
    const QStringList& texts() const { return m_texts; }

private:
    QStringList m_texts;
};

/// One field's way back through the history.
class HistoryWalk {
public:
    enum class Texts { All, OneLine };  ///< which of them the field can show

    HistoryWalk(const CommandHistory& history, Texts texts) : m_history(history), m_wanted(texts) {}

    /// The text `back` steps further back (below 0: forward) from what is shown now. In front of the newest stands what
    /// was being typed; at either end the walk stays.
    QString walk(int back, const QString& shown);
    /// The next step starts from the newest again.
    void reset() { m_back = 0; }

private:
    const CommandHistory& m_history;
    const Texts m_wanted;
    int m_back = 0;   ///< 0: at what was being typed
    QString m_draft;  ///< that
};

}  // namespace app
