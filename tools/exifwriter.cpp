// The EXIF segment: "Exif\0\0", a TIFF header, IFD0 with the orientation, IFD1 with the thumbnail.
#include "exifwriter.h"

#include <QtEndian>

namespace exifwriter
{

QByteArray withExif(const QByteArray &jpeg, int orientation, const QByteArray &thumbnail, bool bigEndian)
{
    QByteArray tiff;
    const auto u16 = [&](quint32 v) {
        char b[2];
        bigEndian ? qToBigEndian<quint16>(quint16(v), b) : qToLittleEndian<quint16>(quint16(v), b);
        tiff.append(b, 2);
    };
    const auto u32 = [&](quint32 v) {
        char b[4];
        bigEndian ? qToBigEndian<quint32>(v, b) : qToLittleEndian<quint32>(v, b);
        tiff.append(b, 4);
    };
    const auto entry = [&](quint16 tag, quint16 type, quint32 value) {
        u16(tag);
        u16(type);
        u32(1);
        if (type == 3) { // a SHORT value fills the first two bytes of the field
            u16(value);
            u16(0);
        } else {
            u32(value);
        }
    };
    tiff.append(bigEndian ? "MM" : "II");
    u16(42);
    u32(8);
    // IFD0 at 8: one entry (18 bytes with its count and link); IFD1 at 26: three entries (42 bytes).
    u16(1);
    entry(0x0112, 3, quint32(orientation));
    u32(thumbnail.isEmpty() ? 0 : 26);
    if (!thumbnail.isEmpty()) {
        u16(3);
        entry(0x0103, 3, 6); // compression: JPEG
        entry(0x0201, 4, 68);
        entry(0x0202, 4, quint32(thumbnail.size()));
        u32(0);
        tiff.append(thumbnail);
    }
    const QByteArray data = QByteArray("Exif\0\0", 6) + tiff;
    char length[2];
    qToBigEndian<quint16>(quint16(data.size() + 2), length);
    return jpeg.left(2) + QByteArray("\xFF\xE1", 2) + QByteArray(length, 2) + data + jpeg.mid(2);
}

} // namespace exifwriter
