// The puzzle file's layout, written and read byte by byte (little-endian, no padding), and the checks
// that keep a damaged or hand-made file from reaching the game.
#include "store/puzzlefile.h"
#include "play/fitting.h"

#include <QCoreApplication>
#include <QFile>
#include <QRect>
#include <QSaveFile>
#include <QtEndian>
#include <algorithm>

namespace puzzlefile
{
namespace
{
    // The texts a player may be shown, translated in the context "puzzlefile".
    struct Texts {
        Q_DECLARE_TR_FUNCTIONS(puzzlefile)
    };

    const QByteArray Signature = QByteArrayLiteral("VARNO01.01");
    // The signature, the type, four Int16, the Int32 colour and the path's length.
    constexpr qsizetype HeaderSize = 25;
    constexpr qsizetype ReservedSize = 30;

    void put16(QByteArray &out, int v)
    {
        out.append(char(v & 0xFF));
        out.append(char((v >> 8) & 0xFF));
    }

    void put32(QByteArray &out, Long v)
    {
        const quint32 u = quint32(v);
        put16(out, int(u & 0xFFFF));
        put16(out, int(u >> 16));
    }

    void putRecord(QByteArray &out, const TileRec &t)
    {
        put16(out, t.SrcX);
        put16(out, t.SrcY);
        put16(out, t.Home);
    }

    // Reads fields in order; the caller has made sure that they lie inside the bytes.
    class Reader
    {
    public:
        explicit Reader(const QByteArray &bytes)
            : m_data(bytes.constData())
        {
        }
        Integer i16()
        {
            const auto v = qFromLittleEndian<qint16>(m_data + m_at);
            m_at += 2;
            return v;
        }
        Long i32()
        {
            const auto v = qFromLittleEndian<qint32>(m_data + m_at);
            m_at += 4;
            return v;
        }
        QByteArray bytes(qsizetype n)
        {
            const QByteArray b(m_data + m_at, n);
            m_at += n;
            return b;
        }
        TileRec record()
        {
            TileRec t;
            t.SrcX = i16();
            t.SrcY = i16();
            t.Home = i16();
            return t;
        }
        void skip(qsizetype n)
        {
            m_at += n;
        }

    private:
        const char *m_data;
        qsizetype m_at = 0;
    };

    LoadError damaged(const QString &what)
    {
        return { Texts::tr("The saved puzzle is damaged: %1.").arg(what) };
    }

    // Every home is held exactly once, on a place or in a tray box the board has; a slide puzzle has
    // no empty place, and its blank stands where BlankPos says.
    std::optional<LoadError> checkTables(const SavedPuzzle &p)
    {
        const int T = p.TileTotal;
        const bool slide = p.PuzType == Codes::Slide;
        std::vector<int> held(std::size_t(T), 0);
        for (int i = 0; i < T + Codes::TraySlots; ++i) {
            const bool place = i < T;
            const int home = place ? p.Board[i].Home : p.Pcs[i - T].Home;
            const auto where
                = [&] { return place ? Texts::tr("place %1").arg(i) : Texts::tr("tray box %1").arg(i - T); };
            if (home == -1 && place && slide)
                return damaged(Texts::tr("%1 is empty in a slide puzzle").arg(where()));
            if (home == -1)
                continue;
            if (home < 0 || home >= T)
                return damaged(
                    Texts::tr("%1 holds a tile whose home (%2) is not on the board").arg(where()).arg(home));
            if (!place && i - T >= p.GridN)
                return damaged(
                    Texts::tr("%1 holds a piece, but the board has only %n tray boxes", nullptr, p.GridN)
                        .arg(where()));
            if (++held[home] > 1)
                return damaged(Texts::tr("the tile whose home is place %1 is held twice").arg(home));
        }
        for (int home = 0; home < T; ++home)
            if (held[home] == 0)
                return damaged(Texts::tr("the tile whose home is place %1 is missing").arg(home));
        if (slide && (p.BlankPos < 0 || p.BlankPos >= T || p.Board[p.BlankPos].Home != T - 1))
            return damaged(
                Texts::tr("the blank tile is not on place %1, where the file puts it").arg(p.BlankPos));
        int inPlace = 0;
        for (int i = 0; i < T; ++i)
            inPlace += p.Board[i].Home == i;
        if (inPlace != p.InPlace)
            return damaged(
                Texts::tr("it counts %n tiles at home where %1 are", nullptr, p.InPlace).arg(inPlace));
        return std::nullopt;
    }

    // The header's values, each within its range and in step with the others and the file's length.
    std::optional<LoadError> checkHeader(const SavedPuzzle &p, qsizetype size, qsizetype pathBytes)
    {
        if (p.GridN < Codes::MinGrid || p.GridN > Codes::MaxGrid)
            return damaged(Texts::tr("its board has %n tiles a side, not 2 to 11", nullptr, p.GridN));
        if (p.TileTotal != p.GridN * p.GridN)
            return damaged(Texts::tr("it counts %n places on a board of %1 x %1 tiles", nullptr, p.TileTotal)
                               .arg(p.GridN));
        if (pathBytes == 0)
            return damaged(Texts::tr("it names no picture"));
        if (pathBytes < 0 || HeaderSize + pathBytes > size)
            return damaged(
                Texts::tr("its picture path of %n bytes does not fit in the file", nullptr, int(pathBytes)));
        if (size != fileSize(pathBytes, p.TileTotal))
            return damaged(
                Texts::tr("the file is %n bytes long where its contents take %1", nullptr, int(size))
                    .arg(fileSize(pathBytes, p.TileTotal)));
        if (p.PuzType != Codes::Slide && p.PuzType != Codes::Drag)
            return damaged(Texts::tr("its puzzle type is neither S nor D"));
        if (p.GridColor != Codes::WhiteColor && p.GridColor != Codes::BlackColor)
            return damaged(Texts::tr("its grid colour is neither white nor black"));
        return std::nullopt;
    }
} // namespace

SavedPuzzle savedFrom(const PuzzleState &s)
{
    SavedPuzzle p { s.PuzType, s.GridN, s.TileTotal, s.BlankPos, s.InPlace, s.GridColor, s.PicFile, s.Board,
        s.Pcs };
    // The table always has its spare record; a shorter one is completed with empty records.
    p.Board.resize(std::size_t(std::max(0, int(s.TileTotal))) + 1);
    return p;
}

QByteArray encode(const SavedPuzzle &p)
{
    const QByteArray path = QFile::encodeName(p.PicFile);
    if (path.size() > MaxPathBytes)
        return {};
    QByteArray out;
    out.reserve(qsizetype(fileSize(path.size(), p.TileTotal)));
    out.append(Signature);
    out.append(p.PuzType.toLatin1().leftJustified(1, ' ', true));
    for (const Integer v : { p.GridN, p.TileTotal, p.BlankPos, p.InPlace })
        put16(out, v);
    put32(out, p.GridColor);
    put16(out, int(path.size()));
    out.append(path);
    out.append(ReservedSize, '\0');
    for (int i = 0; i <= p.TileTotal; ++i)
        putRecord(out, i < int(p.Board.size()) ? p.Board[i] : TileRec {});
    for (const TileRec &t : p.Pcs)
        putRecord(out, t);
    return out;
}

QByteArray encode(const PuzzleState &s)
{
    return encode(savedFrom(s));
}

std::variant<SavedPuzzle, LoadError> decode(const QByteArray &bytes)
{
    if (bytes.size() < HeaderSize)
        return damaged(Texts::tr("the file ends inside its header"));
    Reader in(bytes);
    in.skip(Signature.size());
    SavedPuzzle p;
    p.PuzType = QString::fromLatin1(in.bytes(1));
    p.GridN = in.i16();
    p.TileTotal = in.i16();
    p.BlankPos = in.i16();
    p.InPlace = in.i16();
    p.GridColor = in.i32();
    const Integer pathBytes = in.i16();
    if (auto error = checkHeader(p, bytes.size(), pathBytes))
        return *error;
    p.PicFile = QFile::decodeName(in.bytes(pathBytes));
    in.skip(ReservedSize);
    p.Board.resize(std::size_t(p.TileTotal) + 1);
    for (TileRec &t : p.Board)
        t = in.record();
    for (TileRec &t : p.Pcs)
        t = in.record();
    if (auto error = checkTables(p))
        return *error;
    return p;
}

std::optional<LoadError> checkSources(const SavedPuzzle &p, QSize pictureSize)
{
    if (p.GridN < Codes::MinGrid || pictureSize.isEmpty())
        return std::nullopt;
    const QSize box = fitting::boxPixels(fitting::fitToBoard(pictureSize));
    const QSize tile(fitting::tileSide(box.width(), p.GridN), fitting::tileSide(box.height(), p.GridN));
    const QSize source = fitting::boardFor(box, p.GridN);
    // A picture too narrow or too flat for the board is refused by the picture's own checks.
    if (tile.isEmpty())
        return std::nullopt;
    const QRect picture({ 0, 0 }, source);
    const int places = std::clamp<int>(p.TileTotal, 0, int(p.Board.size()));
    for (int i = 0; i < places + Codes::TraySlots; ++i) {
        const bool place = i < places;
        const TileRec &t = place ? p.Board[i] : p.Pcs[i - places];
        // The blank of a slide puzzle and the empty holders are drawn plain, never cut from the picture.
        if (t.Home < 0 || (p.PuzType == Codes::Slide && t.Home == p.TileTotal - 1))
            continue;
        if (picture.contains(QRect(QPoint(t.SrcX, t.SrcY), tile)))
            continue;
        return LoadError { Texts::tr("The saved puzzle does not fit its picture %1: the tile %2 is cut "
                                     "at %3, %4, and its %5 x %6 pixels reach outside the picture, "
                                     "which is %7 x %8 pixels on the board.")
                               .arg(p.PicFile,
                                   place ? Texts::tr("on place %1").arg(i)
                                         : Texts::tr("in tray box %1").arg(i - places))
                               .arg(t.SrcX)
                               .arg(t.SrcY)
                               .arg(tile.width())
                               .arg(tile.height())
                               .arg(source.width())
                               .arg(source.height()) };
    }
    return std::nullopt;
}

void takeOver(const SavedPuzzle &p, PuzzleState &s)
{
    s.PuzType = p.PuzType;
    s.setGridSize(p.GridN);
    s.BlankPos = p.BlankPos;
    s.InPlace = p.InPlace;
    s.GridColor = p.GridColor;
    s.PicFile = p.PicFile;
    s.Board = p.Board;
    s.Pcs = p.Pcs;
}

QString writeWhole(const QString &path, const QByteArray &bytes)
{
    // Unbuffered, so that a short write (a full disk) is seen here and not lost inside the final flush.
    QSaveFile out(path);
    if (!out.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return out.errorString();
    for (qint64 done = 0; done < bytes.size();) {
        const qint64 n = out.write(bytes.constData() + done, bytes.size() - done);
        if (n <= 0) {
            const QString error = out.errorString();
            out.cancelWriting();
            return error;
        }
        done += n;
    }
    return out.commit() ? QString() : out.errorString();
}

std::variant<QByteArray, LoadError> readFile(const QString &path)
{
    QFile in(path);
    if (!in.open(QIODevice::ReadOnly))
        return LoadError {
            Texts::tr("The saved puzzle %1 cannot be opened: %2.").arg(path, in.errorString())
        };
    QByteArray bytes = in.read(MaxFileSize + 1);
    if (in.error() != QFileDevice::NoError)
        return LoadError { Texts::tr("The saved puzzle %1 cannot be read: %2.").arg(path, in.errorString()) };
    return bytes;
}

} // namespace puzzlefile
