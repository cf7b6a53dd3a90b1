// Shared painting helpers for the generated pictures: seeded dice, colour arithmetic and ridge lines.
#pragma once

#include <QColor>
#include <QRandomGenerator>

#include <vector>

namespace picturegen
{

// Seeded random draws: the same seed always gives the same picture.
class Dice
{
public:
    explicit Dice(quint32 seed)
        : rng(seed)
    {
    }
    double real(double lo, double hi)
    {
        return lo + rng.generateDouble() * (hi - lo);
    }
    int below(int n)
    {
        return int(rng.bounded(quint32(n)));
    }
    bool chance(double p)
    {
        return rng.generateDouble() < p;
    }

private:
    QRandomGenerator rng;
};

// The colour a fraction t of the way from a to b, alpha included.
QColor mix(const QColor &a, const QColor &b, double t);
QColor withAlpha(QColor c, int alpha);
// Darker below 1 (towards black), lighter above 1 (towards white).
QColor shade(const QColor &c, double factor);
// Turns every colour of a palette by the same hue so that seeds sharing a palette still differ.
QColor turn(const QColor &c, double degrees);
// A smooth step from 0 to 1 over t in [0, 1].
double smooth(double t);
// Heights in [0, 1] along a ridge, by midpoint displacement; rough near 1 gives jagged peaks.
std::vector<double> ridge(Dice &dice, double rough);

} // namespace picturegen
