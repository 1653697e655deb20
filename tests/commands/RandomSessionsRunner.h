#pragma once

#include "support/CommandFixture.h"
#include "support/TestView.h"

#include <QHash>

/// A session of script lines in a fresh host, watched step by step: whatever undo and redo come to must be as it was
/// there before. The scene starts with a drawing of one layer. Two commands beside the plug-in's: "sketch", which does
/// what the tools do from press to release, and "highlight", which marks a span of the time slider.
class SessionRunner : public CommandFixture {
public:
    SessionRunner();
    ~SessionRunner() override;

    /// What became of a session's lines.
    struct Census {
        struct Count {
            int succeeded = 0;
            int failed = 0;
        };
        size_t lines = 0;          ///< run until something was wrong
        std::vector<Count> modes;  ///< by line mode
    };
    /// Runs all the lines and the rewinding. Gives the first thing that is wrong; empty when nothing is.
    static std::string faultOf(const std::vector<std::string>& lines, Census* census = nullptr);

private:
    struct State {
        QString text;
        kernel::Time time;
        QString emptyCamera;  ///< the current one when it has no layers
    };

    void TestBody() override {}
    /// Runs a line. Gives what is wrong after it; empty when nothing is.
    std::string play(const std::string& line);
    /// Undoes everything and redoes it to the end.
    std::string rewind();
    int steps() const { return static_cast<int>(m_session.undo.count()); }
    State state();
    QString pixelsOf(const Frame& frame);
    std::string compared(const char* when);
    std::string afterStep(int stepsBefore);
    std::string afterLine(const std::string& line, int stepsBefore);
    std::string playBack(const std::string& line);
    void followUnit(kernel::TimeUnit before);

    TestViews m_views;
    kernel::Session& m_session;
    std::vector<State> m_states;       // after so many steps; those behind the present one can be redone
    QHash<quint64, QString> m_pixels;  // by picture: the same picture has the same pixels
    bool m_succeeded = false;
};
