#pragma once

#include "model/InkedImage.h"
#include "model/Layer.h"

#include <QColor>

#include <vector>

/// Faded neighbours of the current frame, by keys and not by time.
struct GhostOptions {
    bool previous;
    bool next;
    int previousCount;
    int nextCount;
    bool tinted;
    QColor previousTint;
    QColor nextTint;
};

GhostOptions ghostOptions();  ///< as the preferences say

/// Opacity of the strongest ghost, the one next to the current frame.
constexpr float kStrongestGhost = 0.4f;

/// One camera's ghosts. They outlive a stroke, so that they stay on screen while drawing without being made anew.
class GhostImages {
public:
    /// The ghosts would be made of something else than they were.
    bool isOutdated(const Layer& layer, const GhostOptions& options) const;
    void rebuild(Layer& layer, const GhostOptions& options);  ///< does nothing unless outdated

    const InkedImage& sheet() const { return m_sheet; }  ///< earlier frames behind later ones; null before the first
    quint64 revision() const { return m_revision; }      ///< another one for every other image

private:
    static std::vector<quint64> ingredients(const Layer& layer, const GhostOptions& options);

    std::vector<quint64> m_madeOf;
    quint64 m_revision = 0;
    // Images are null until they are made first.
    InkedImage
        m_previous;  // left as it is while earlier ghosts are off, and still drawn behind later ones: it is meant
    InkedImage m_sheet;
};
