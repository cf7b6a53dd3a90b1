// The main window: owns the puzzle state and every drawing surface, and hosts the command handlers.
// The handlers of each subsystem are implemented in that subsystem's folder.
#pragma once

#include "platform/services.h"
#include "play/puzzlestate.h"
#include "play/random.h"

#include <QAccessible>
#include <QWidget>
#include <array>
#include <memory>

class CloseWatch;
class CursorOutline;
struct DropTarget;
class FaceButton;
class PictureBox;
class ShapeBox;
class SvgImage;
class TextLabel;
namespace puzzlefile
{
struct SavedPuzzle;
}

// The resource path of a command button face.
QString faceResource(const QString &name);

class vxmain : public QWidget
{
    Q_OBJECT
public:
    // programFolder is where the puzzle file and the library folder live.
    vxmain(const Platform &platform, const QString &programFolder, QWidget *parent = nullptr);
    ~vxmain() override;

    PuzzleState &state()
    {
        return m_state;
    }
    const PuzzleState &state() const
    {
        return m_state;
    }
    // The client area, in whose pixels every layout number is measured.
    QWidget *client() const
    {
        return m_client;
    }

    // Start-up (the window's load event), the window's life cycle and the layout.
    void Form_Load();
    void FrmRzMove();
    void Form_Resize();
    void Form_Activate();
    // The window closed any way other than "Exit Game" (by the desktop, or a stop signal): the run ends
    // at once, without the save question and without writing anything.
    void Form_Unload();
    // A later start of the game asked for it: the game comes back from the small window or from behind
    // other windows, shown, raised and active.
    void BringForward();
    void ScrResize();

    // Picture loading, the grid and the frame animation.
    // Returns false, after telling the player why, when the picture cannot be used; nothing changed then.
    bool LoadPic(const QString &mode);
    void DrawLines();
    void FrAnimate();

    // Play.
    void Scramble();
    void vxrz_MouseDown(Qt::MouseButton button, Qt::KeyboardModifiers shift, float X, float Y);
    void vxpcs_MouseDown(int Index, Qt::MouseButton button, Qt::KeyboardModifiers shift, float X, float Y);
    void Form_MouseMove(float X, float Y);
    void Form_MouseUp(float X, float Y);
    // An arrow key: in the slide puzzle the tile on that side of the blank is pressed, in the drag puzzle
    // the keyboard's cursor moves one holder. False for other keys.
    bool Form_KeyDown(int key);

    // Holders are numbered as one list: board places 0 .. TileTotal - 1, then in the drag puzzle the tray
    // boxes, one under each column, as the board's last row.
    int holderCount() const;
    PictureBox *holderBox(int h) const;
    // The holder's rectangle in its box's pixels (a board place with the grid lines round it).
    QRect holderRect(int h) const;
    // What a screen reader hears for a holder: where it is and what stands on it.
    QString holderName(int h) const;
    // The holder under the keyboard's cursor, and whether its outline is drawn.
    int cursorHolder() const
    {
        return m_cursor;
    }
    // The last lift, drop, move or "Solved" told to a screen reader.
    QString announcement() const
    {
        return m_announcement;
    }

    // A picture file dropped on the window from outside: opened as if chosen with "Open Image".
    void Form_DragDrop(const QString &path);

    // Picture selection.
    void PickImageFile();

    // Command handlers, one per button.
    void cb_new_Click();
    void cb_lib_Click();
    void cb_load_Click();
    void cb_save_Click();
    void cb_type_Click();
    void cb_grid_Click();
    void cb_resize_Click();
    void cb_scramble_Click();
    void cb_full_Click();
    void cb_help_Click();
    void cb_helpdoc_Click();
    void cb_min_Click();
    void cb_exit_Click();
    // Clicks on the two views' pictures, and the small window's size or state change.
    void vxrz_s_Click();
    void hlpdoc_Click();
    void vxmin_Resize();

    // Controls, by their design names.
    QWidget *fr_cmd = nullptr;
    FaceButton *cb_new = nullptr;
    FaceButton *cb_lib = nullptr;
    FaceButton *cb_load = nullptr;
    FaceButton *cb_save = nullptr;
    FaceButton *cb_type = nullptr;
    FaceButton *cb_grid = nullptr;
    FaceButton *cb_resize = nullptr;
    FaceButton *cb_scramble = nullptr;
    FaceButton *cb_full = nullptr;
    FaceButton *cb_help = nullptr;
    FaceButton *cb_helpdoc = nullptr;
    FaceButton *cb_min = nullptr;
    FaceButton *cb_exit = nullptr;
    PictureBox *vxrz = nullptr;
    PictureBox *vxrz_s = nullptr;
    PictureBox *vxblank = nullptr;
    PictureBox *vxdrag = nullptr;
    PictureBox *hlpdoc = nullptr;
    std::array<PictureBox *, Codes::TraySlots> vxpcs {};
    ShapeBox *hlpfr_rz = nullptr;
    ShapeBox *hlpfr_pcs = nullptr;
    ShapeBox *vxframe_main = nullptr;
    ShapeBox *vxframe_border = nullptr;
    ShapeBox *vxframe_inner = nullptr;
    ShapeBox *vxfr_t = nullptr;
    ShapeBox *vxfr_b = nullptr;
    ShapeBox *vxfr_l = nullptr;
    ShapeBox *vxfr_r = nullptr;
    TextLabel *lblmsg = nullptr;
    TextLabel *lbllogo = nullptr;
    SvgImage *imglogo = nullptr;

    // The picture at its own size while it is being fitted; empty otherwise.
    QImage vxpicfull;

signals:
    // The run ends through this (the program leaves its event loop on it): from the exit command after
    // its question, or from Form_Unload.
    void exitRequested();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void buildControls();
    void buildCommandBar();
    // Refuses, with the player told why, a chosen file that is in the library or not a picture by name.
    bool acceptPicture(const FileChoice &choice);
    // The accepted OpenFile becomes the picture on the board, or everything stays when it cannot be shown.
    void openAccepted();
    void hideFrameBars();
    void showFrameBars(bool shown);
    void outlineTrayBox(int i);
    // Every place of the board from the tables: tiles from the whole picture, the blank image elsewhere.
    void drawBoard();
    // The tray boxes in use drawn again from Pcs (after a layout pass emptied them).
    void drawTrayHeld();
    void liftFromBoard(Integer P, float X, float Y);
    void startDrag();
    // Ends a drag whatever ends it: the pointer released, the boxes enabled, the drag image hidden.
    // Returns the holder the piece was lifted from.
    int endDrag();
    // The drop, by the pointer or the keys, on a target found by either; then the solved test.
    void finishDrop(const DropTarget &target, int S);
    void dropOnBoard(const QPoint &point, int S);
    void dropOnTray(int k, int S);
    void putBack(int S);
    // Space, Enter and Escape on the board in the drag puzzle; false for other keys.
    bool boardKey(int key);
    void moveCursor(int dc, int dr);
    // Back to place 0, not drawn, the board focused: after a scramble or a load.
    void resetCursor();
    // The outline over the cursor's holder while it is wanted and the puzzle is in play.
    void showCursor();
    // The piece the keys carry floats over the cursor's holder.
    void placeDragImage();
    // A screen reader hears of the holder under the cursor, and of what happened.
    void tellFocus(QAccessible::Event what);
    void announce(const QString &text);
    // The picture is whole again: the frame, the whole picture, and play ends.
    void finishSolved();
    void HelpOn(Integer pos, bool fromTray);
    // The help document's box and the views' looks and clicks.
    void buildHelpViews();
    // The help picture, drawn under the lines printed on the box the first time the help is shown.
    void drawHelpDocument();
    // After a view: the tray boxes in use come back for the drag-and-drop puzzle, the keys to the board.
    void showTrayAfterView();
    // Mode "Lib" of LoadPic: the chosen file into the library folder.
    bool storeInLibrary();
    // The saved puzzle: a checked file taken over and drawn; a picture that fails leaves no puzzle.
    void showLoaded(const puzzlefile::SavedPuzzle &saved);
    // The grid and type buttons' faces and Tags from GridColor and PuzType.
    void showCodes();
    // A picture that is gone: no puzzle, no picture, an empty board without its frame.
    void endWithoutPuzzle();

    Platform m_platform;
    PuzzleState m_state;
    QString m_programFolder;
    bool m_helpDrawn = false;
    QWidget *m_client = nullptr;
    QWidget *vxmin = nullptr;
    RandomSource m_random;
    bool m_scrambling = false;
    // The run is ending: handlers that let events run in the middle stop at their next chance.
    bool m_ending = false;
    std::unique_ptr<CloseWatch> m_closeWatch;
    // Device pixels to a pixel of the window, rounded up: the density of the boxes' second drawing.
    int m_fineRatio = 1;
    // The keyboard's cursor (a holder), whether an arrow has been pressed since the last scramble or load,
    // and whether the lifted piece belongs to the keys (then the pointer leaves it alone, and the other
    // way round).
    int m_cursor = 0;
    bool m_cursorShown = false;
    bool m_keyLift = false;
    bool m_keysOnBoard = false;
    CursorOutline *m_cursorBox = nullptr;
    QString m_announcement;
    // The board box the picture on the board was fitted into, before the layout rounded it to tiles.
    QSize m_fitted;

public:
    // Pins the random generator, so that a test can repeat a scramble.
    void setRandomSeed(quint32 seed)
    {
        m_random = RandomSource(seed);
    }
};
