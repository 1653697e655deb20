#pragma once

#include <QPlainTextEdit>

namespace app {

/// Shows the journal and stays at its end, unless the user scrolled back to read.
class JournalView : public QPlainTextEdit {
    Q_OBJECT

public:
    /// The document outlives the view.
    explicit JournalView(QTextDocument* journal, QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private slots:
    void NoteValue(int value);
    void FollowEnd();

private:
    bool m_follows = true;
};

}  // namespace app
