// The picture library's rules, free of widgets: which files it holds and in what order, how far its
// view scrolls, which files a view shows, which shown thumbnails can be handed on instead of read
// again, and the name a picture is stored under.
#pragma once

#include <QString>
#include <QStringList>
#include <array>

namespace library
{

// Six thumbnails, two to a column; the scroll position of the first view.
constexpr int Thumbs = 6;
constexpr int FirstPosition = 2;
// A step of the scroll position moves the view by this much: one column.
constexpr int ColumnStep = 2;

// Names of the folder's files matching *.jpg, *.gif and *.bmp (in any letter case), in list order.
QStringList listFiles(const QString &folder);

// List order: letter case is ignored and runs of digits compare by their value ("VX_9" before
// "VX_10"); names equal that way are ordered by their exact characters.
bool nameLess(const QString &a, const QString &b);

// The largest scroll position for a count of files: the last position shows the last column.
int scrollMax(int count);

// The list entries the thumbnails show at a scroll position: entries position - 2 .. position + 3,
// -1 where the list has no such entry.
std::array<int, Thumbs> shownEntries(int position, int count);

// One pass over the thumbnails, 0 to 5 in turn: thumbnail k takes the picture held by thumbnail
// from[k] (found by its tag, among the others, first match; the one handed on loses its tag), or reads
// its file afresh when from[k] is -1. tags are the thumbnails' tags before the pass; names the files
// wanted, "" for an empty thumbnail. A thumbnail refilled earlier in the same pass no longer matches.
std::array<int, Thumbs> planFill(std::array<QString, Thumbs> tags, const std::array<QString, Thumbs> &names);

// The name a picture chosen elsewhere is stored under: its own when it already begins with "VX_" in
// any letter case, otherwise "VX_" followed by it.
QString storedName(const QString &title);

} // namespace library
