// Draws the help picture from resources/help/help.txt, or its translation in the player's language. The
// source marks a heading with a leading '#', each level of indent with a leading '>', a button with [name]
// (a command face, "delete" for the delete symbol, "cb_add" for the library window's add button) and a
// bold run with <b>..</b>.
#include "help/helppicture.h"

#include "app/vxmain.h"
#include "pictures/libfrm.h"
#include "platform/language.h"

#include <QFile>
#include <QFontMetrics>
#include <QPainter>
#include <QSvgRenderer>

namespace
{
struct Run {
    QString text;
    QString picture;
    bool bold = false;
};

struct Line {
    int indent = 0;
    bool heading = false;
    QList<Run> runs;
};

QList<Line> parseHelp(const QString &source)
{
    QList<Line> lines;
    for (QString text : source.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        Line line;
        line.heading = text.startsWith(QLatin1Char('#'));
        if (line.heading)
            text.remove(0, 1);
        while (text.startsWith(QLatin1Char('>'))) {
            ++line.indent;
            text.remove(0, 1);
        }
        bool bold = line.heading;
        QString words;
        const auto endWords = [&] {
            if (!words.isEmpty())
                line.runs.append({ words, QString(), bold });
            words.clear();
        };
        for (int i = 0; i < text.size(); ++i) {
            const QStringView rest = QStringView(text).mid(i);
            if (rest.startsWith(QLatin1String("<b>")) || rest.startsWith(QLatin1String("</b>"))) {
                endWords();
                bold = rest.startsWith(QLatin1String("<b>"));
                i += bold ? 2 : 3;
            } else if (text[i] == QLatin1Char('[') && text.indexOf(QLatin1Char(']'), i) > i) {
                endWords();
                const int end = text.indexOf(QLatin1Char(']'), i);
                line.runs.append({ QString(), text.mid(i + 1, end - i - 1), false });
                i = end;
            } else {
                words += text[i];
            }
        }
        endWords();
        lines.append(line);
    }
    return lines;
}

QFont textFont(int pixels, bool bold)
{
    QFont f;
    f.setFamilies({ QStringLiteral("Arial"), QStringLiteral("Liberation Sans"), QStringLiteral("Helvetica"),
        QStringLiteral("DejaVu Sans") });
    f.setStyleHint(QFont::SansSerif);
    f.setPixelSize(pixels);
    f.setBold(bold);
    return f;
}

constexpr int Left = 10;
constexpr int Right = 8;
constexpr int IndentStep = 16;

// The pictures a line may show, all as tall as a line allows: the button faces and the delete symbol,
// square, and the library window's add button, as wide as its text needs.
class Pictures
{
public:
    Pictures(int height, qreal ratio)
        : m_height(height)
        , m_addButton(addButtonPicture(height, ratio))
    {
    }
    int width(const QString &name) const
    {
        return name == QLatin1String("cb_add") ? qRound(m_addButton.deviceIndependentSize().width())
                                               : m_height;
    }
    void draw(QPainter &p, const QString &name, QPoint at) const
    {
        const QRect box(at, QSize(width(name), m_height));
        if (name == QLatin1String("cb_add")) {
            p.drawImage(box.topLeft(), m_addButton);
        } else if (name == QLatin1String("delete")) {
            // The delete symbol, drawn for a dark ground, gets a face's dark plate under it.
            p.setPen(QColor(0x60, 0x60, 0x68));
            p.setBrush(QColor(0x3a, 0x3a, 0x40));
            p.drawRoundedRect(QRectF(box).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
            QSvgRenderer(QStringLiteral(":/delete.svg"))
                .render(&p, QRectF(box).adjusted(1.5, 1.5, -1.5, -1.5));
        } else {
            QSvgRenderer(faceResource(name)).render(&p, QRectF(box));
        }
    }

private:
    int m_height;
    QImage m_addButton;
};

int lineWidth(
    const Line &line, const QFontMetrics &normal, const QFontMetrics &bold, const Pictures &pictures)
{
    int w = Left + line.indent * IndentStep;
    for (const Run &r : line.runs)
        w += r.picture.isEmpty() ? (r.bold ? bold : normal).horizontalAdvance(r.text)
                                 : pictures.width(r.picture);
    return w;
}
} // namespace

int drawHelpPicture(QImage &img, int stripHeight)
{
    // Measured in the picture's own pixels, whatever the density of the image that holds it.
    const QSize size = img.deviceIndependentSize().toSize();
    img.fill(Qt::white);
    QFile source(language::localised(QStringLiteral(":/help/help.txt")));
    if (!source.open(QIODevice::ReadOnly))
        return 0;
    const QList<Line> lines = parseHelp(QString::fromUtf8(source.readAll()));
    if (lines.isEmpty())
        return 0;
    QPainter p(&img);
    p.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);

    // The logo strip, as tall as the free first line printed onto the box.
    p.fillRect(QRect(0, 0, size.width(), stripHeight), QColor(0x2c, 0x2c, 0x31));
    p.fillRect(QRect(0, stripHeight - 1, size.width(), 1), QColor(0xf0, 0xb4, 0x29));
    const int logoH = std::max(stripHeight - 4, 1);
    QSvgRenderer(QStringLiteral(":/logo.svg")).render(&p, QRectF(6, 2, logoH * 132.0 / 24.0, logoH));

    // The lines share the height left under the closing line; headings stand a little apart.
    constexpr int HeadingGap = 5;
    const int top = 2 * stripHeight + 9;
    int gaps = 0;
    for (qsizetype i = 1; i < lines.size(); ++i)
        gaps += lines[i].heading ? HeadingGap : 0;
    const int L = std::max((size.height() - 6 - top - gaps) / int(lines.size()), 8);
    const int icon = std::min(18, L - 2);
    const Pictures pictures(icon, img.devicePixelRatio());
    // The largest small font with which every line fits the width.
    int pixels = std::min(12, L - 6);
    for (; pixels > 8; --pixels) {
        const QFontMetrics normal(textFont(pixels, false), &img), bold(textFont(pixels, true), &img);
        if (std::all_of(lines.begin(), lines.end(),
                [&](const Line &l) { return lineWidth(l, normal, bold, pictures) <= size.width() - Right; }))
            break;
    }
    p.fillRect(QRect(Left, top - 5, size.width() - Left - Right, 1), QColor(0xc6, 0xc1, 0xb7));

    int y = top;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const Line &line = lines[i];
        if (i > 0 && line.heading)
            y += HeadingGap;
        int x = Left + line.indent * IndentStep;
        for (const Run &r : line.runs) {
            if (!r.picture.isEmpty()) {
                pictures.draw(p, r.picture, QPoint(x, y + (L - icon) / 2));
                x += pictures.width(r.picture);
                continue;
            }
            const QFont f = textFont(pixels, r.bold);
            const QFontMetrics fm(f, &img);
            p.setFont(f);
            p.setPen(Qt::black);
            p.drawText(QPoint(x, y + (L + fm.ascent() - fm.descent()) / 2), r.text);
            x += fm.horizontalAdvance(r.text);
        }
        y += L;
    }
    return pixels;
}
