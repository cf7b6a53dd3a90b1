#include "texture.h"

#include "paint.h"

#include <algorithm>
#include <vector>

namespace picturegen
{

namespace
{

    // Smooth random values at a given cell size in fixed point; preparing one row at a time keeps it cheap.
    class ValueNoise
    {
    public:
        ValueNoise(int width, int height, int cell, quint32 seed)
            : cell(cell)
            , cols(width / cell + 2)
            , grid(size_t(cols) * (height / cell + 2))
            , index(width)
            , frac(width)
            , row(cols)
        {
            QRandomGenerator rng(seed);
            for (int &v : grid)
                v = int(rng.bounded(256u)) - 128;
            for (int x = 0; x < width; ++x) {
                index[x] = x / cell;
                frac[x] = int(256 * smooth(double(x % cell) / cell));
            }
        }
        void prepare(int y)
        {
            const int r = y / cell;
            const int f = int(256 * smooth(double(y % cell) / cell));
            const int *a = &grid[size_t(r) * cols];
            const int *b = a + cols;
            for (int i = 0; i < cols; ++i)
                row[i] = a[i] * 256 + (b[i] - a[i]) * f;
        }
        // A value in about [-128, 127] at column x of the prepared row.
        int at(int x) const
        {
            const int i = index[x];
            return (row[i] * 256 + (row[i + 1] - row[i]) * frac[x]) >> 16;
        }

    private:
        int cell, cols;
        std::vector<int> grid, index, frac, row;
    };

} // namespace

void addTexture(QImage &img, quint32 seed, int horizon)
{
    const int w = img.width(), h = img.height();
    const int shorter = std::min(w, h);
    ValueNoise blotch(w, h, std::max(8, shorter / 10), seed ^ 0x9e3779b9u);
    ValueNoise tint(w, h, std::max(8, shorter / 6), seed ^ 0x7f4a7c15u);
    ValueNoise weave(w, h, std::max(3, shorter / 700), seed ^ 0x85ebca6bu);
    ValueNoise fibre(w, h, 2, seed ^ 0xc2b2ae35u);

    std::vector<int> vignetteX(w);
    for (int x = 0; x < w; ++x) {
        const double dx = (x - w / 2.0) / (w / 2.0);
        vignetteX[x] = int(40 * dx * dx);
    }
    for (int y = 0; y < h; ++y) {
        blotch.prepare(y);
        tint.prepare(y);
        weave.prepare(y);
        fibre.prepare(y);
        const double dy = (y - h / 2.0) / (h / 2.0);
        const int vignetteY = int(40 * dy * dy);
        // Texture strength in 1/16: gentle in the sky, full on land and water.
        const int strength = y < horizon ? 6 : 14;
        quint32 state = (quint32(y) * 0x9e3779b1u) ^ seed ^ 0xa5a5a5a5u;
        state = state ? state : 1;
        QRgb *line = reinterpret_cast<QRgb *>(img.scanLine(y));
        for (int x = 0; x < w; ++x) {
            state ^= state << 13;
            state ^= state >> 17;
            state ^= state << 5;
            const int grain = int(state & 15) + int((state >> 4) & 15) - 15;
            const int chroma = int((state >> 8) & 7) - 3;
            const int texture = (weave.at(x) * 3 + fibre.at(x) * 4) * strength >> 8;
            const int lum = (blotch.at(x) >> 3) + texture + grain * 3 / 4;
            const int warm = tint.at(x) >> 4;
            const int keep = 256 - vignetteX[x] - vignetteY;
            const QRgb px = line[x];
            const int r = ((qRed(px) + lum + warm + chroma) * keep) >> 8;
            const int g = ((qGreen(px) + lum) * keep) >> 8;
            const int b = ((qBlue(px) + lum - warm - chroma) * keep) >> 8;
            line[x] = qRgb(std::clamp(r, 0, 255), std::clamp(g, 0, 255), std::clamp(b, 0, 255));
        }
    }
}

} // namespace picturegen
