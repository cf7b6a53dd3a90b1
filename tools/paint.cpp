#include "paint.h"

#include <algorithm>
#include <cmath>

namespace picturegen
{

QColor mix(const QColor &a, const QColor &b, double t)
{
    return QColor::fromRgbF(a.redF() + (b.redF() - a.redF()) * t, a.greenF() + (b.greenF() - a.greenF()) * t,
        a.blueF() + (b.blueF() - a.blueF()) * t, a.alphaF() + (b.alphaF() - a.alphaF()) * t);
}

QColor withAlpha(QColor c, int alpha)
{
    c.setAlpha(alpha);
    return c;
}

QColor shade(const QColor &c, double factor)
{
    return factor < 1 ? mix(c, Qt::black, 1 - factor) : mix(c, Qt::white, factor - 1);
}

QColor turn(const QColor &c, double degrees)
{
    float h, s, v, a;
    c.getHsvF(&h, &s, &v, &a);
    if (h < 0)
        return c;
    return QColor::fromHsvF(std::fmod(h + degrees / 360.0 + 1.0, 1.0), s, v, a);
}

double smooth(double t)
{
    t = std::clamp(t, 0.0, 1.0);
    return t * t * (3 - 2 * t);
}

std::vector<double> ridge(Dice &dice, double rough)
{
    const int n = 257;
    std::vector<double> h(n);
    h[0] = dice.real(0.1, 0.9);
    h[n - 1] = dice.real(0.1, 0.9);
    double amp = 0.6;
    for (int step = n - 1; step > 1; step /= 2) {
        for (int i = step / 2; i < n; i += step)
            h[i] = (h[i - step / 2] + h[i + step / 2]) / 2 + dice.real(-amp, amp);
        amp *= rough;
    }
    const auto [lo, hi] = std::minmax_element(h.begin(), h.end());
    const double low = *lo, span = std::max(1e-9, *hi - *lo);
    for (double &v : h)
        v = (v - low) / span;
    return h;
}

} // namespace picturegen
