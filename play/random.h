// The game's random numbers: uniform values in [0, 1), reseeded from the clock; a pinned seed makes a
// run repeat exactly (reseeds are then ignored).
#pragma once

#include <QDateTime>
#include <QRandomGenerator>

class RandomSource
{
public:
    RandomSource()
        : m_gen(quint32(QDateTime::currentMSecsSinceEpoch()))
    {
    }
    explicit RandomSource(quint32 seed)
        : m_gen(seed)
        , m_pinned(true)
    {
    }
    // 24 random bits, so the value is exactly representable and never reaches 1.
    float next()
    {
        return float(m_gen.generate() >> 8) * (1.0f / 16777216.0f);
    }
    void reseedFromClock()
    {
        if (!m_pinned)
            m_gen.seed(quint32(QDateTime::currentMSecsSinceEpoch()) ^ m_gen.generate());
    }

private:
    QRandomGenerator m_gen;
    bool m_pinned = false;
};
