// The start-up baseline: a bare Qt Widgets program of the game window's shape and nothing more. An
// 806 x 606 frameless window, 13 icon buttons showing the same vector faces, a 520 x 390 picture label.
#include <QApplication>
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
    int x = 3;
    for (const char *face : faces) {
        auto *b = new QToolButton(&window);
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
    window.show();
    return QApplication::exec();
}
