// The picture library window: six thumbnails that scroll sideways by columns, a delete symbol to drop
// a thumbnail on, "&Cancel" and "&Add Image".
#pragma once

#include "platform/picturebox.h"
#include "platform/services.h"
#include "play/vbmath.h"

#include <QDialog>
#include <array>
#include <functional>

class PuzzleState;
class QPushButton;
class QScrollBar;
class SvgImage;

// A thumbnail: an image box showing a library picture stretched to it, drawn at the screen's density.
class LibImage : public PictureBox
{
    Q_OBJECT
public:
    explicit LibImage(QWidget *parent);
    QString Tag; // the full path of the file shown; "" when empty
    QString Problem; // why that file cannot be shown; "" when it shows
};

// What the library window acts on: the main window's state and platform, and its picture choosing
// (PickImageFile) and storing (LoadPic with "Lib").
struct LibraryHost {
    PuzzleState &state;
    Platform platform;
    std::function<void()> PickImageFile;
    std::function<bool(const QString &)> LoadPic;
};

// The states a drag reports over the delete symbol.
namespace DragState
{
constexpr int Enter = 0;
constexpr int Leave = 1;
constexpr int Over = 2;
} // namespace DragState

// The "&Add Image" button as the library window shows it, but as tall as a line of the help document,
// which shows it on its line about adding pictures; drawn at this many device pixels to a pixel.
QImage addButtonPicture(int height, qreal ratio);

class libfrm : public QDialog
{
    Q_OBJECT
public:
    explicit libfrm(const LibraryHost &host, QWidget *parent = nullptr);

    void Form_Load();
    void SetScroll();
    void libscroll_Change();
    void libimg_DblClick(int Index);
    void libimg_MouseDown(int Index, Qt::MouseButton Button, Qt::KeyboardModifiers Shift, float X, float Y);
    void cb_del_DragOver(int State);
    void cb_del_DragDrop();
    void cb_add_Click();
    void cb_cancel_Click();

    std::array<LibImage *, 6> libimg {};
    QScrollBar *libscroll = nullptr;
    SvgImage *cb_del = nullptr;
    QPushButton *cb_cancel = nullptr;
    QPushButton *cb_add = nullptr;
    // The library's file names, in list order (the hidden file list).
    QStringList libfiles;
    // The thumbnail being dragged.
    Integer LibDragIdx = -1;
    // The drag cursor pictures: the normal one (carried by the scroll bar) and the one over cb_del.
    QCursor libscroll_DragIcon;
    QCursor cb_del_DragIcon;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    // The file list read again, the view back at the first column and the thumbnails filled again.
    void refresh();
    void clearThumbnails();
    void followDrag(QPoint pos);
    void endDrag();

    LibraryHost m_host;
    // Device pixels to a pixel of the thumbnails: the screen's ratio rounded up.
    int m_ratio = 1;
    bool m_dragging = false;
    bool m_overDelete = false;
};
