// The library's rules: scroll range and last view, list order, the EXIF thumbnail finder on damaged data.
#include "exifwriter.h"
#include "pictures/exifthumbnail.h"
#include "pictures/librarymodel.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

class LibraryModelTest : public QObject
{
    Q_OBJECT
private slots:
    // The last position shows the last column: the last file, and an empty thumbnail when the count is odd.
    void scrollRangeAndLastView()
    {
        using Six = std::array<int, 6>;
        for (const auto &[count, max, last] : { std::tuple(0, 2, Six { -1, -1, -1, -1, -1, -1 }),
                 { 6, 2, { 0, 1, 2, 3, 4, 5 } }, { 7, 4, { 2, 3, 4, 5, 6, -1 } },
                 { 8, 4, { 2, 3, 4, 5, 6, 7 } }, { 9, 6, { 4, 5, 6, 7, 8, -1 } } }) {
            QCOMPARE(library::scrollMax(count), max);
            QVERIFY(library::shownEntries(max, count) == last);
        }
    }

    // Any letter case, by name ignoring case, numbers by value; no folders, other files or hidden files.
    void listOrder()
    {
        QTemporaryDir dir;
        for (const char *name : { "b.JPG", "a10.gif", "A2.bmp", "a1.bmp", "a2.bmp", "n.txt", ".h.jpg" })
            QVERIFY(QFile(dir.filePath(name)).open(QIODevice::WriteOnly));
        QVERIFY(QDir(dir.path()).mkdir("folder.jpg"));
        QCOMPARE(library::listFiles(dir.path()),
            QStringList({ "a1.bmp", "A2.bmp", "a2.bmp", "a10.gif", "b.JPG" }));
    }

    // Found in either byte order; cut short or damaged anywhere, a file gives no thumbnail or one inside it.
    void exifThumbnailFoundAndBounded()
    {
        const QByteArray picture("\xFF\xD8\xFF\xDB\x00\x04\x01\x02\xFF\xDA\x00\x02\xFF\xD9", 14);
        const QByteArray thumb("\xFF\xD8 small picture \xFF\xD9");
        QVERIFY(!exif::embeddedThumbnail(picture));
        for (bool bigEndian : { false, true }) {
            const QByteArray file = exifwriter::withExif(picture, 6, thumb, bigEndian);
            const std::optional<exif::Range> r = exif::embeddedThumbnail(file);
            QVERIFY(r && file.mid(r->offset, r->length) == thumb);
            for (qsizetype i = 0; i < file.size(); ++i) {
                QByteArray damaged = file;
                damaged[i] = char(damaged[i] ^ 0x80);
                for (const QByteArrayView b : { QByteArrayView(file).first(i), QByteArrayView(damaged) }) {
                    const std::optional<exif::Range> d = exif::embeddedThumbnail(b);
                    QVERIFY(!d || (d->offset >= 0 && d->length > 0 && d->offset + d->length <= b.size()));
                }
            }
        }
    }
};

QTEST_GUILESS_MAIN(LibraryModelTest)
#include "tst_library.moc"
