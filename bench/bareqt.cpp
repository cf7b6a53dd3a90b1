// The start-up baseline: a bare Qt Widgets program of the game window's shape and nothing more. An
// 806 x 606 frameless window, 13 icon buttons showing the same vector faces with their tooltips, a
// 520 x 390 picture label and, as the game shows beside its logo, one line of text. With --no-text the
// text is left out, and with it the loading of the system's fonts.
#include <QApplication>
#include <QFont>
#include <QLabel>
#include <QPixmap>
#include <QToolButton>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QWidget window(nullptr, Qt::Window | Qt::FramelessWindowHint);
    window.setFixedSize(806, 606);
    window.setWindowIcon(QIcon(QStringLiteral(":/icon.svg")));
    const char *faces[] = { "cb_new", "cb_lib", "cb_load", "cb_save", "cb_type_s", "cb_grid_w", "cb_resize",
        "cb_scramble", "cb_full", "cb_help", "cb_helpdoc", "cb_min", "cb_exit" };
    const char *tips[] = { "Open Image", "Image Library", "Open Saved Game", "Save Current Game",
        "Change Game Type", "Set Grid Color", "Set Number of Tiles", "Scramble Tyles", "Display Full Image",
        "Find Tile Position", "View Help", "Minimize Game", "Exit Game" };
    int x = 3;
    for (int i = 0; i < 13; ++i) {
        const char *face = faces[i];
        auto *b = new QToolButton(&window);
        b->setToolTip(QString::fromLatin1(tips[i]));
        b->setIcon(QIcon(QStringLiteral(":/faces/%1.svg").arg(QLatin1String(face))));
        b->setIconSize(QSize(22, 22));
        b->setGeometry(x, 3, 22, 22);
        x += 27;
    }
    QPixmap picture(520, 390);
    picture.fill(QColor(255, 192, 192));
    auto *label = new QLabel(&window);
    label->setPixmap(picture);
    label->setGeometry(143, 108, 520, 390);
    if (!QApplication::arguments().contains(QStringLiteral("--no-text"))) {
        auto *caption = new QLabel(QStringLiteral("Picture Tile Puzzle"), &window);
        caption->setGeometry(500, 3, 132, 24);
    }
    window.show();
    return QApplication::exec();
}
