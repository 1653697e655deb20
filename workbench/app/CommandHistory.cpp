#include "app/CommandHistory.h"

namespace app {

namespace {

constexpr int kMostTexts = 1000;
constexpr int kLongestText = 1 << 15;  // nobody steps through the history for more

}  // namespace

void CommandHistory::add(const QString& text)
{
    if (text.size() <= kLongestText && (m_texts.isEmpty() || m_texts.last() != text)) {
        m_texts << text;
    }
    while (m_texts.size() > kMostTexts) {
        m_texts.removeFirst();
    }
}

QString HistoryWalk::walk(int back, const QString& shown)
{
    if (m_back == 0) {
        m_draft = shown;
    }
    QStringList texts;
    for (const QString& text : m_history.texts()) {
        if (m_wanted == Texts::All || !text.contains('\n')) {
            texts << text;
        }
    }
    // A field may go on showing what it ran.
    if (!texts.isEmpty() && texts.last() == m_draft) {
        texts.removeLast();
    }
    m_back = qBound(0, m_back + back, texts.size());
    return m_back == 0 ? m_draft : texts[texts.size() - m_back];
}

}  // namespace app
