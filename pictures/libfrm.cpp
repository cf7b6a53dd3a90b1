// The picture library window, laid out from its design in twips (15 to a pixel): filling the
// thumbnails, choosing, adding, and deleting by a drag onto the delete symbol.
#include "pictures/libfrm.h"

#include "pictures/librarymodel.h"
#include "pictures/thumbnail.h"
#include "platform/caption.h"
#include "platform/shapes.h"
#include "play/puzzlestate.h"
#include "render/picturefile.h"

#include <QFile>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QSvgRenderer>
#include <cmath>

namespace
{
const QColor Grey(128, 128, 128);

int px(int twips)
{
    return int(vb::roundHalfEven(twips / 15.0));
}

// Thumbnails stand in columns: 0 and 1 in the first, 2 and 3 in the second, 4 and 5 in the third.
const int ThumbLeft[3] = { 435, 2535, 4635 };
const int ThumbTop[2] = { 420, 2145 };
const QSize ThumbSize(px(1680), px(1260));

QCursor svgCursor(const QString &path)
{
    QPixmap pm(32, 32);
    pm.fill(Qt::transparent);
    QPainter p(&pm);
    QSvgRenderer(path).render(&p);
    p.end();
    return QCursor(pm, 2, 2); // the arrow's tip
}

// The window's grey ground; its buttons take their outline from it.
void paintGrey(QWidget *window)
{
    window->setAutoFillBackground(true);
    QPalette pal = window->palette();
    pal.setColor(QPalette::Window, Grey);
    window->setPalette(pal);
}

// "&Add Image" at its design size; the window places it.
QPushButton *newAddButton(QWidget *window)
{
    auto *button = new QPushButton(libfrm::tr("&Add Image"), window);
    button->resize(px(2280), px(645));
    return button;
}
} // namespace

QImage addButtonPicture(int height, qreal ratio)
{
    // A hidden window of the same kind and ground, so that the button is drawn as it stands in the
    // library window before the player touches it; its text keeps its size, so it stays readable.
    QDialog window;
    paintGrey(&window);
    QPushButton *button = newAddButton(&window);
    button->resize(button->sizeHint().width(), height);
    window.resize(button->size());
    QImage picture(button->size() * ratio, QImage::Format_RGB32);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Grey);
    button->render(&picture);
    return picture;
}

LibImage::LibImage(QWidget *parent)
    : PictureBox(parent, Grey)
{
}

libfrm::libfrm(const LibraryHost &host, QWidget *parent)
    : QDialog(parent,
        Qt::Dialog | Qt::MSWindowsFixedSizeDialogHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint)
    , libscroll_DragIcon(svgCursor(QStringLiteral(":/cursors/libdrag.svg")))
    , cb_del_DragIcon(svgCursor(QStringLiteral(":/cursors/libdrag_del.svg")))
    , m_host(host)
    , m_ratio(std::max(int(std::ceil(devicePixelRatioF())), 1))
{
    setWindowTitle(tr("Picture Library"));
    setFixedSize(px(6795), px(5205));
    // Over the game, which stands in the middle of the screen.
    centreOnScreen(this, parent);
    paintGrey(this);
    for (int k = 0; k < library::Thumbs; ++k) {
        libimg[k] = new LibImage(this);
        libimg[k]->move(px(ThumbLeft[k / 2]), px(ThumbTop[k % 2]));
        libimg[k]->setBoxSize(ThumbSize.width(), ThumbSize.height());
        libimg[k]->setFineRatio(m_ratio);
        libimg[k]->installEventFilter(this);
        connect(libimg[k], &PictureBox::mousePressed, this,
            [this, k](Qt::MouseButton b, Qt::KeyboardModifiers m, QPointF p) {
                libimg_MouseDown(k, b, m, float(p.x()), float(p.y()));
            });
        connect(libimg[k], &PictureBox::mouseDoubleClicked, this, [this, k] { libimg_DblClick(k); });
    }
    libscroll = new QScrollBar(Qt::Horizontal, this);
    libscroll->setGeometry(px(435), px(3690), px(5895), px(315));
    // An arrow moves one column; a click beside the slider a whole view of three columns.
    libscroll->setRange(library::FirstPosition, library::FirstPosition);
    libscroll->setSingleStep(library::ColumnStep);
    libscroll->setPageStep(3 * library::ColumnStep);
    connect(libscroll, &QScrollBar::valueChanged, this, [this](int value) {
        // Dragging the slider may stop between columns: the view snaps to the column on the left.
        if ((value - library::FirstPosition) % library::ColumnStep) {
            libscroll->setValue(value - 1);
            return;
        }
        libscroll_Change();
    });
    cb_del = new SvgImage(this, QStringLiteral(":/delete.svg"));
    cb_del->setGeometry(px(570), px(4425), px(360), px(360));
    cb_cancel = new QPushButton(tr("&Cancel"), this);
    cb_cancel->setGeometry(px(1440), px(4320), px(2265), px(645));
    cb_add = newAddButton(this);
    cb_add->move(px(4050), px(4320));
    connect(cb_cancel, &QPushButton::clicked, this, &libfrm::cb_cancel_Click);
    connect(cb_add, &QPushButton::clicked, this, &libfrm::cb_add_Click);
    Form_Load();
}

void libfrm::Form_Load()
{
    libfiles = library::listFiles(m_host.state.LibPath);
    const int before = libscroll->value();
    SetScroll();
    // The first fill runs even though the position did not change.
    if (libscroll->value() == before)
        libscroll_Change();
}

void libfrm::SetScroll()
{
    // Back to the first column before the range shrinks, so that the range never moves the view itself.
    libscroll->setValue(library::FirstPosition);
    libscroll->setMaximum(library::scrollMax(int(libfiles.size())));
}

void libfrm::libscroll_Change()
{
    const int n = int(libfiles.size());
    if (n < 1) {
        clearThumbnails();
        return;
    }
    const std::array<int, library::Thumbs> entries = library::shownEntries(libscroll->value(), n);
    std::array<QString, library::Thumbs> names, tags;
    for (int k = 0; k < library::Thumbs; ++k) {
        if (entries[k] >= 0)
            names[k] = m_host.state.LibPath + QLatin1Char('/') + libfiles[entries[k]];
        tags[k] = libimg[k]->Tag;
    }
    const std::array<int, library::Thumbs> from = library::planFill(tags, names);
    // A picture is only ever handed on by a thumbnail not yet refilled in this pass: take them all now,
    // at the device's resolution.
    std::array<QImage, library::Thumbs> held;
    std::array<QString, library::Thumbs> problems;
    QStringList toRead;
    for (int k = 0; k < library::Thumbs; ++k) {
        held[k] = libimg[k]->fine() ? *libimg[k]->fine() : libimg[k]->image();
        held[k].setDevicePixelRatio(1);
        problems[k] = libimg[k]->Problem;
        if (from[k] < 0 && !names[k].isEmpty())
            toRead << names[k];
    }
    const std::vector<thumbnail::Thumb> read = thumbnail::decodeAll(toRead, ThumbSize, m_ratio);
    auto next = read.begin();
    for (int k = 0; k < library::Thumbs; ++k) {
        LibImage *img = libimg[k];
        img->Tag = names[k];
        if (from[k] >= 0) {
            img->stretchDraw(held[from[k]], img->rect());
            img->Problem = problems[from[k]];
        } else if (names[k].isEmpty()) {
            img->clearPicture();
            img->Problem.clear();
        } else {
            img->stretchDraw(next->image, img->rect());
            img->Problem = next->error;
            ++next;
        }
    }
    // Shown: what was made here goes to the desktop's cache on a thread of its own.
    thumbnail::keep(read);
}

void libfrm::clearThumbnails()
{
    // The last file is gone: no thumbnail may offer a picture that no longer exists.
    for (LibImage *img : libimg) {
        img->clearPicture();
        img->Tag.clear();
        img->Problem.clear();
    }
}

void libfrm::libimg_DblClick(int Index)
{
    const LibImage *img = libimg[Index];
    if (img->Tag.isEmpty())
        return;
    // A picture that cannot be shown, or is gone since, is reported here and the window stays open.
    QString problem = picturefile::probe(img->Tag).error;
    if (problem.isEmpty())
        problem = img->Problem;
    if (!problem.isEmpty()) {
        m_host.platform.messages.show(problem, tr("Open - ERROR"), MsgStyle::Critical);
        return;
    }
    m_host.state.PicFile = img->Tag;
    accept();
}

void libfrm::libimg_MouseDown(int Index, Qt::MouseButton, Qt::KeyboardModifiers, float, float)
{
    if (libimg[Index]->Tag.isEmpty())
        return;
    LibDragIdx = Integer(Index);
    libimg[Index]->setCursor(libscroll_DragIcon);
    m_dragging = true;
    m_overDelete = false;
}

void libfrm::cb_del_DragOver(int State)
{
    if (LibDragIdx < 0)
        return;
    if (State == DragState::Enter)
        libimg[LibDragIdx]->setCursor(cb_del_DragIcon);
    else if (State == DragState::Leave)
        libimg[LibDragIdx]->setCursor(libscroll_DragIcon);
}

void libfrm::cb_del_DragDrop()
{
    if (LibDragIdx < 0 || libimg[LibDragIdx]->Tag.isEmpty())
        return;
    const QString path = libimg[LibDragIdx]->Tag;
    if (m_host.platform.messages.show(
            tr("Delete '%1'").arg(path), tr("Delete Image"), MsgStyle::YesNoQuestion)
        != MsgAnswer::Yes)
        return;
    // A failed deletion is not reported: the thumbnails show the folder as it then is.
    QFile::remove(path);
    refresh();
}

void libfrm::cb_add_Click()
{
    m_host.PickImageFile();
    if (m_host.state.OpenFile.isEmpty())
        return;
    // The view goes back to the first column, so a replaced picture is read again, never handed on.
    m_host.LoadPic(QStringLiteral("Lib"));
    refresh();
}

void libfrm::cb_cancel_Click()
{
    m_host.state.PicFile.clear();
    reject();
}

void libfrm::refresh()
{
    m_host.platform.pointers.set(PointerShape::Hourglass);
    Form_Load();
    m_host.platform.pointers.set(PointerShape::Default);
}

bool libfrm::eventFilter(QObject *watched, QEvent *event)
{
    // The pressed thumbnail holds the mouse until the release, so the whole drag is seen here.
    if (m_dragging && watched == libimg[LibDragIdx]) {
        if (event->type() == QEvent::MouseMove)
            followDrag(
                libimg[LibDragIdx]->mapTo(this, static_cast<QMouseEvent *>(event)->position().toPoint()));
        else if (event->type() == QEvent::MouseButtonRelease)
            endDrag();
    }
    return QDialog::eventFilter(watched, event);
}

void libfrm::followDrag(QPoint pos)
{
    const bool over = cb_del->geometry().contains(pos);
    if (over != m_overDelete) {
        m_overDelete = over;
        cb_del_DragOver(over ? DragState::Enter : DragState::Leave);
    } else if (over) {
        cb_del_DragOver(DragState::Over);
    }
}

void libfrm::endDrag()
{
    m_dragging = false;
    libimg[LibDragIdx]->unsetCursor();
    // A drag that ends anywhere but on the delete symbol has no effect.
    if (std::exchange(m_overDelete, false))
        cb_del_DragDrop();
}
