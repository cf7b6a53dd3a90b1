// Finding the embedded EXIF thumbnail: every read is checked against the bytes at hand, so a damaged or
// hostile file gives no thumbnail rather than a read outside the file.
#include "pictures/exifthumbnail.h"

#include <QtEndian>

namespace exif
{
namespace
{
    constexpr quint16 ThumbnailOffsetTag = 0x0201; // JPEGInterchangeFormat
    constexpr quint16 ThumbnailLengthTag = 0x0202; // JPEGInterchangeFormatLength
    constexpr quint16 TypeShort = 3;
    constexpr quint16 TypeLong = 4;
    constexpr qsizetype EntrySize = 12;

    bool startsJpeg(QByteArrayView b)
    {
        return b.size() >= 2 && uchar(b[0]) == 0xFF && uchar(b[1]) == 0xD8;
    }

    // The TIFF structure inside the EXIF segment, in its own byte order.
    class Tiff
    {
    public:
        explicit Tiff(QByteArrayView bytes)
            : m_b(bytes)
        {
        }
        bool readHeader()
        {
            if (m_b.size() < 8 || m_b[0] != m_b[1] || (m_b[0] != 'I' && m_b[0] != 'M'))
                return false;
            m_little = m_b[0] == 'I';
            return u16(2) == 42;
        }
        bool fits(quint64 at, quint64 size) const
        {
            return at <= quint64(m_b.size()) && size <= quint64(m_b.size()) - at;
        }
        // Reads beyond the end give 0; callers check the range first.
        quint32 u16(quint64 at) const
        {
            if (!fits(at, 2))
                return 0;
            const uchar *p = reinterpret_cast<const uchar *>(m_b.data()) + at;
            return m_little ? qFromLittleEndian<quint16>(p) : qFromBigEndian<quint16>(p);
        }
        quint32 u32(quint64 at) const
        {
            if (!fits(at, 4))
                return 0;
            const uchar *p = reinterpret_cast<const uchar *>(m_b.data()) + at;
            return m_little ? qFromLittleEndian<quint32>(p) : qFromBigEndian<quint32>(p);
        }
        // The offset of the directory after the one at ifd, 0 when there is none or it does not fit.
        quint32 nextDirectory(quint32 ifd) const
        {
            if (!fits(ifd, 2) || !fits(ifd, 2 + EntrySize * u16(ifd) + 4))
                return 0;
            return u32(ifd + 2 + EntrySize * u16(ifd));
        }
        // A one-valued SHORT or LONG entry of the directory at ifd.
        std::optional<quint32> value(quint32 ifd, quint16 tag) const
        {
            const quint32 count = u16(ifd);
            if (!fits(ifd, 2 + EntrySize * count))
                return std::nullopt;
            for (quint32 e = 0; e < count; ++e) {
                const quint64 at = ifd + 2 + EntrySize * e;
                if (u16(at) != tag || u32(at + 4) != 1)
                    continue;
                if (u16(at + 2) == TypeLong)
                    return u32(at + 8);
                if (u16(at + 2) == TypeShort)
                    return u16(at + 8);
            }
            return std::nullopt;
        }
        QByteArrayView bytes() const
        {
            return m_b;
        }

    private:
        QByteArrayView m_b;
        bool m_little = true;
    };

    // The thumbnail's range within an APP1 segment's data, counted from the data's start.
    std::optional<Range> fromExifSegment(QByteArrayView data)
    {
        const QByteArrayView signature("Exif\0\0", 6);
        if (!data.startsWith(signature))
            return std::nullopt;
        Tiff tiff(data.sliced(signature.size()));
        if (!tiff.readHeader())
            return std::nullopt;
        const quint32 ifd1 = tiff.nextDirectory(tiff.u32(4));
        if (ifd1 == 0)
            return std::nullopt;
        const std::optional<quint32> offset = tiff.value(ifd1, ThumbnailOffsetTag);
        const std::optional<quint32> length = tiff.value(ifd1, ThumbnailLengthTag);
        if (!offset || !length || !tiff.fits(*offset, *length)
            || !startsJpeg(tiff.bytes().sliced(*offset, *length)))
            return std::nullopt;
        return Range { signature.size() + qsizetype(*offset), qsizetype(*length) };
    }
} // namespace

std::optional<Range> embeddedThumbnail(QByteArrayView file)
{
    if (!startsJpeg(file))
        return std::nullopt;
    const auto byteAt = [&](qsizetype at) { return uchar(file[at]); };
    qsizetype pos = 2;
    // Every marker moves pos on by at least one byte, so the walk ends.
    while (pos + 4 <= file.size()) {
        if (byteAt(pos) != 0xFF)
            return std::nullopt;
        const uchar marker = byteAt(pos + 1);
        if (marker == 0xFF) { // fill byte
            ++pos;
            continue;
        }
        if (marker == 0xDA || marker == 0xD9) // the first scan, or the end: no EXIF data came before
            return std::nullopt;
        if (marker == 0x01 || (marker >= 0xD0 && marker <= 0xD8)) { // markers without a length
            pos += 2;
            continue;
        }
        const qsizetype length
            = qFromBigEndian<quint16>(reinterpret_cast<const uchar *>(file.data()) + pos + 2);
        if (length < 2 || length > file.size() - pos - 2)
            return std::nullopt;
        if (marker == 0xE1)
            if (const std::optional<Range> r = fromExifSegment(file.sliced(pos + 4, length - 2)))
                return Range { pos + 4 + r->offset, r->length };
        pos += 2 + length;
    }
    return std::nullopt;
}

} // namespace exif
