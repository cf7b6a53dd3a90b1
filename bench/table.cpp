// The benchmark's one table, with each figure's median, spread and ratio against its baseline, and the
// ways the sections measure.
#include "bench.h"

#include <QFile>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <malloc.h>

namespace bench
{
namespace
{
    struct Stats {
        double median = 0, min = 0, max = 0;
        bool valid = false;
    };

    Stats summary(std::vector<double> v)
    {
        if (v.empty())
            return {};
        std::sort(v.begin(), v.end());
        return { v[v.size() / 2], v.front(), v.back(), true };
    }

    struct Row {
        QString what, unit;
        Stats ours;
        QString baseName;
        Stats base, ratio;
        Target target;
    };

    std::vector<Row> table;

    QString number(double v)
    {
        const double a = std::abs(v);
        return QString::number(v, 'f', a >= 100 ? 0 : a >= 10 ? 1 : a >= 1 ? 2 : 3);
    }

    QString cell(const Stats &s, const QString &unit = {})
    {
        if (!s.valid)
            return QStringLiteral("-");
        const QString u = unit.isEmpty() ? QString() : QLatin1Char(' ') + unit;
        return QStringLiteral("%1%2 [%3-%4]").arg(number(s.median), u, number(s.min), number(s.max));
    }

    // Met, missed, or nothing to meet, judged on the medians.
    QString verdict(const Row &r)
    {
        switch (r.target.kind) {
        case Target::RatioAtMost:
            return r.ratio.median <= r.target.limit ? QStringLiteral("met") : QStringLiteral("MISSED");
        case Target::RatioAtLeast:
            return r.ratio.median >= r.target.limit ? QStringLiteral("met") : QStringLiteral("MISSED");
        case Target::ValueBelow:
            return r.ours.median < r.target.limit ? QStringLiteral("met") : QStringLiteral("MISSED");
        case Target::None:
            break;
        }
        return {};
    }
} // namespace

std::vector<QString> notes;

void add(const QString &what,
    const QString &unit,
    const std::vector<double> &ours,
    const QString &baseName,
    const std::vector<double> &base,
    Target target)
{
    std::vector<double> ratios;
    for (size_t i = 0; i < std::min(ours.size(), base.size()); ++i)
        if (base[i] > 0)
            ratios.push_back(ours[i] / base[i]);
    table.push_back({ what, unit, summary(ours), baseName, summary(base), summary(ratios), target });
}

void printTable()
{
    const auto w = [](const QString &s, int width) { return s.leftJustified(width).toUtf8(); };
    std::printf("\n%s %s %s %s %s %s\n", w("measured", 52).constData(),
        w("ours: median [min-max]", 30).constData(), w("baseline", 36).constData(),
        w("baseline: median [min-max]", 30).constData(), w("ratio: median [min-max]", 24).constData(),
        "target");
    for (const Row &r : table) {
        const QString target = r.target.kind == Target::None
            ? QString()
            : QStringLiteral("%1  %2").arg(QString::fromUtf8(r.target.text), verdict(r));
        std::printf("%s %s %s %s %s %s\n", w(r.what, 52).constData(), w(cell(r.ours, r.unit), 30).constData(),
            w(r.baseName, 36).constData(), w(cell(r.base, r.unit), 30).constData(),
            w(cell(r.ratio), 24).constData(), target.toUtf8().constData());
    }
    for (const QString &n : notes)
        std::printf("%s\n", n.toUtf8().constData());
}

// ---- Measuring ----

double elapsedUs(const std::function<void()> &f)
{
    QElapsedTimer timer;
    timer.start();
    f();
    return double(timer.nsecsElapsed()) / 1000.0;
}

Pair paired(int runs, const std::function<void()> &ours, const std::function<void()> &base, double unit)
{
    ours();
    base();
    Pair p;
    for (int i = 0; i < runs; ++i) {
        p.ours.push_back(elapsedUs(ours) / unit);
        p.base.push_back(elapsedUs(base) / unit);
    }
    return p;
}

namespace
{
    long statusKb(const char *field)
    {
        QFile f(QStringLiteral("/proc/self/status"));
        if (!f.open(QIODevice::ReadOnly))
            return 0;
        for (const QByteArray &line : f.readAll().split('\n'))
            if (line.startsWith(field))
                return line.mid(qstrlen(field)).trimmed().split(' ').first().toLong();
        return 0;
    }
} // namespace

double peakRiseMiB(const std::function<void()> &f)
{
    malloc_trim(0);
    QFile clear(QStringLiteral("/proc/self/clear_refs"));
    if (clear.open(QIODevice::WriteOnly))
        clear.write("5"); // resets the peak to the current level
    clear.close();
    const long before = statusKb("VmRSS:");
    f();
    return double(statusKb("VmHWM:") - before) / 1024.0;
}

QString loadAverage()
{
    QFile load(QStringLiteral("/proc/loadavg"));
    if (!load.open(QIODevice::ReadOnly))
        return QStringLiteral("unknown");
    return QString::fromLatin1(load.readAll().split(' ').first());
}

} // namespace bench
