// Command-line tool: saves what the X server's screen shows as a PNG, for `make screenshot`.
#include <QGuiApplication>
#include <QImage>
#include <QPixmap>
#include <QScreen>

#include <cstdio>

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: grabscreen PNG\n");
        return 1;
    }
    QGuiApplication app(argc, argv);
    const QImage shot = QGuiApplication::primaryScreen()->grabWindow(0).toImage();
    if (shot.isNull() || !shot.save(QString::fromLocal8Bit(argv[1]), "PNG")) {
        std::fprintf(stderr, "grabscreen: the screen could not be saved as %s\n", argv[1]);
        return 1;
    }
    return 0;
}
