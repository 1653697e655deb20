#pragma once

#include <QPoint>

#include <random>

/// Chance for a test, the same for the same seed on every machine.
class Dice {
public:
    explicit Dice(unsigned seed) : m_random(seed) {}

    /// From first to last, both included.
    int between(int first, int last)
    {
        return first + static_cast<int>(m_random() % static_cast<unsigned>(last - first + 1));
    }
    bool oneIn(int chances) { return between(1, chances) == 1; }
    QPoint point(int first, int last) { return QPoint(between(first, last), between(first, last)); }
    /// 0..1; both ends come often.
    float opacity() { return static_cast<float>(oneIn(8) ? between(0, 1) * 1000 : between(0, 1000)) / 1000; }

private:
    std::mt19937 m_random;
};
