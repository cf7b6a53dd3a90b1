// The picture library's rules: file list, order, scroll range, shown entries, reuse and naming.
#include "pictures/librarymodel.h"

#include <QDir>
#include <algorithm>

namespace library
{
namespace
{
    bool isDigit(QChar c)
    {
        return c >= QLatin1Char('0') && c <= QLatin1Char('9');
    }

    // Compares the digit runs starting at i and j by value; moves both past their runs.
    int compareNumbers(QStringView a, qsizetype &i, QStringView b, qsizetype &j)
    {
        while (i < a.size() && a[i] == QLatin1Char('0'))
            ++i;
        while (j < b.size() && b[j] == QLatin1Char('0'))
            ++j;
        const qsizetype si = i, sj = j;
        while (i < a.size() && isDigit(a[i]))
            ++i;
        while (j < b.size() && isDigit(b[j]))
            ++j;
        // Without leading zeros the longer run is the larger number; equal lengths compare digit by digit.
        if (i - si != j - sj)
            return i - si < j - sj ? -1 : 1;
        return a.sliced(si, i - si).compare(b.sliced(sj, j - sj));
    }

    int naturalCompare(QStringView a, QStringView b)
    {
        qsizetype i = 0, j = 0;
        while (i < a.size() && j < b.size()) {
            if (isDigit(a[i]) && isDigit(b[j])) {
                if (const int c = compareNumbers(a, i, b, j))
                    return c;
                continue;
            }
            const char16_t x = a[i].toCaseFolded().unicode(), y = b[j].toCaseFolded().unicode();
            if (x != y)
                return x < y ? -1 : 1;
            ++i;
            ++j;
        }
        if (i < a.size() || j < b.size())
            return i < a.size() ? 1 : -1;
        return 0;
    }
} // namespace

QStringList listFiles(const QString &folder)
{
    QDir dir(folder);
    dir.setNameFilters({ QStringLiteral("*.jpg"), QStringLiteral("*.gif"), QStringLiteral("*.bmp") });
    // Without QDir::CaseSensitive the patterns match names in any letter case.
    dir.setFilter(QDir::Files);
    dir.setSorting(QDir::NoSort);
    QStringList names = dir.entryList();
    std::sort(names.begin(), names.end(), nameLess);
    return names;
}

bool nameLess(const QString &a, const QString &b)
{
    if (const int c = naturalCompare(a, b))
        return c < 0;
    return a < b;
}

int scrollMax(int count)
{
    if (count < 7)
        return FirstPosition;
    const int m = count % 2 ? count + 1 : count;
    return m - 4;
}

std::array<int, Thumbs> shownEntries(int position, int count)
{
    std::array<int, Thumbs> entries {};
    for (int k = 0; k < Thumbs; ++k) {
        const int i = position - FirstPosition + k;
        entries[k] = i >= 0 && i < count ? i : -1;
    }
    return entries;
}

std::array<int, Thumbs> planFill(std::array<QString, Thumbs> tags, const std::array<QString, Thumbs> &names)
{
    std::array<int, Thumbs> from {};
    for (int k = 0; k < Thumbs; ++k) {
        from[k] = -1;
        if (!names[k].isEmpty()) {
            for (int j = 0; j < Thumbs; ++j)
                if (j != k && tags[j] == names[k]) {
                    from[k] = j;
                    break;
                }
        }
        if (from[k] >= 0) {
            tags[k] = tags[from[k]];
            tags[from[k]].clear();
        } else {
            tags[k] = names[k];
        }
    }
    return from;
}

QString storedName(const QString &title)
{
    const QString prefix = QStringLiteral("VX_");
    return title.left(3).toUpper() == prefix ? title : prefix + title;
}

} // namespace library
