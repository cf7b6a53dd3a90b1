// GIF89a encoding: a fixed palette (so no quantisation pass), variable-width LZW codes packed LSB first
// into 255-byte sub-blocks.
#include "gifwriter.h"

#include <QFile>
#include <unordered_map>
#include <vector>

namespace gifwriter
{
namespace
{

    // 6 levels of red, 7 of green, 6 of blue: 252 colours.
    int paletteIndex(QRgb c)
    {
        const int r = (qRed(c) * 5 + 127) / 255, g = (qGreen(c) * 6 + 127) / 255,
                  b = (qBlue(c) * 5 + 127) / 255;
        return (r * 7 + g) * 6 + b;
    }

    class BitPacker
    {
    public:
        explicit BitPacker(QByteArray &out)
            : m_out(out)
        {
        }
        void put(int code, int width)
        {
            m_acc |= quint32(code) << m_bits;
            m_bits += width;
            while (m_bits >= 8) {
                byte(quint8(m_acc & 0xFF));
                m_acc >>= 8;
                m_bits -= 8;
            }
        }
        void finish()
        {
            if (m_bits > 0)
                byte(quint8(m_acc & 0xFF));
            flushBlock();
            m_out.append('\0');
        }

    private:
        void byte(quint8 b)
        {
            m_block.append(char(b));
            if (m_block.size() == 255)
                flushBlock();
        }
        void flushBlock()
        {
            if (m_block.isEmpty())
                return;
            m_out.append(char(m_block.size()));
            m_out.append(m_block);
            m_block.clear();
        }
        QByteArray &m_out;
        QByteArray m_block;
        quint32 m_acc = 0;
        int m_bits = 0;
    };

    void compress(const std::vector<quint8> &pixels, QByteArray &out)
    {
        constexpr int MinCodeSize = 8, Clear = 256, End = 257, MaxCode = 4095;
        out.append(char(MinCodeSize));
        BitPacker bits(out);
        std::unordered_map<quint32, int> table;
        table.reserve(8192);
        int next = End + 1, width = MinCodeSize + 1;
        bits.put(Clear, width);
        int prefix = pixels.empty() ? 0 : pixels[0];
        for (std::size_t i = 1; i < pixels.size(); ++i) {
            const quint32 key = (quint32(prefix) << 8) | pixels[i];
            const auto found = table.find(key);
            if (found != table.end()) {
                prefix = found->second;
                continue;
            }
            bits.put(prefix, width);
            if (next <= MaxCode) {
                table.emplace(key, next);
                if (next == (1 << width) && width < 12)
                    ++width;
                ++next;
            } else {
                // The table is full: start a fresh one.
                bits.put(Clear, width);
                table.clear();
                next = End + 1;
                width = MinCodeSize + 1;
            }
            prefix = pixels[i];
        }
        bits.put(prefix, width);
        bits.put(End, width);
        bits.finish();
    }

    void le16(QByteArray &out, int v)
    {
        out.append(char(v & 0xFF));
        out.append(char((v >> 8) & 0xFF));
    }

} // namespace

bool write(const QImage &image, const QString &path)
{
    const QImage img = image.convertToFormat(QImage::Format_RGB32);
    QByteArray out("GIF89a");
    le16(out, img.width());
    le16(out, img.height());
    out.append(char(0xF7)); // global colour table of 256 entries
    out.append('\0');
    out.append('\0');
    for (int i = 0; i < 256; ++i) {
        const int r = i / 42, g = (i / 6) % 7, b = i % 6;
        const bool used = i < 252;
        out.append(char(used ? r * 255 / 5 : 0));
        out.append(char(used ? g * 255 / 6 : 0));
        out.append(char(used ? b * 255 / 5 : 0));
    }
    out.append(',');
    le16(out, 0);
    le16(out, 0);
    le16(out, img.width());
    le16(out, img.height());
    out.append('\0');
    std::vector<quint8> pixels;
    pixels.reserve(std::size_t(img.width()) * img.height());
    for (int y = 0; y < img.height(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(img.constScanLine(y));
        for (int x = 0; x < img.width(); ++x)
            pixels.push_back(quint8(paletteIndex(line[x])));
    }
    compress(pixels, out);
    out.append(';');
    QFile f(path);
    return f.open(QIODevice::WriteOnly) && f.write(out) == out.size();
}

} // namespace gifwriter
