// Command-line tool: draws an SVG icon into PNG files of the hicolor theme's sizes, for the install.
#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>

int main(int argc, char **argv)
{
    if (argc < 5) {
        std::fprintf(stderr, "usage: makeicons SVG FOLDER NAME SIZE...\n");
        return 1;
    }
    // Drawing needs a GUI application, not a screen.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    QSvgRenderer svg(QString::fromLocal8Bit(argv[1]));
    if (!svg.isValid()) {
        std::fprintf(stderr, "makeicons: cannot read %s\n", argv[1]);
        return 1;
    }
    for (int i = 4; i < argc; ++i) {
        const int size = std::atoi(argv[i]);
        const QString folder = QStringLiteral("%1/%2x%2/apps").arg(QString::fromLocal8Bit(argv[2])).arg(size);
        QImage icon(size, size, QImage::Format_ARGB32_Premultiplied);
        icon.fill(Qt::transparent);
        QPainter p(&icon);
        p.setRenderHint(QPainter::Antialiasing);
        svg.render(&p, QRectF(0, 0, size, size));
        p.end();
        const QString file
            = folder + QLatin1Char('/') + QString::fromLocal8Bit(argv[3]) + QStringLiteral(".png");
        if (size <= 0 || !QDir().mkpath(folder) || !icon.save(file)) {
            std::fprintf(stderr, "makeicons: cannot write %s\n", qPrintable(file));
            return 1;
        }
    }
    return 0;
}
