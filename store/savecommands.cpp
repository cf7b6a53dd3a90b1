// The save, load and exit commands: the puzzle in progress to its one file beside the program and back,
// and the offer to save on the way out.
#include "app/vxmain.h"
#include "platform/facebutton.h"
#include "platform/picturebox.h"
#include "render/picturefile.h"
#include "store/puzzlefile.h"

#include <QFileInfo>

namespace
{
// A file read, decoded and checked against its picture as the picture is now. pictureLost marks a
// picture that is gone or cannot be read: the saved puzzle can then never be played.
struct CheckedFile {
    puzzlefile::SavedPuzzle saved;
    QString error;
    bool pictureLost = false;
};

CheckedFile readChecked(const QString &path)
{
    CheckedFile c;
    auto bytes = puzzlefile::readFile(path);
    if (const auto *e = std::get_if<puzzlefile::LoadError>(&bytes))
        return { {}, e->text };
    auto decoded = puzzlefile::decode(std::get<QByteArray>(bytes));
    if (const auto *e = std::get_if<puzzlefile::LoadError>(&decoded))
        return { {}, e->text };
    c.saved = std::move(std::get<puzzlefile::SavedPuzzle>(decoded));
    const picturefile::Header header = picturefile::probe(c.saved.PicFile);
    if (!header.error.isEmpty())
        return { {}, header.error, true };
    if (const auto e = puzzlefile::checkSources(c.saved, header.size))
        c.error = e->text;
    return c;
}
} // namespace

void vxmain::cb_save_Click()
{
    const PuzzleState &s = m_state;
    if (!s.allows(Command::SaveGame))
        return;
    const QByteArray bytes = puzzlefile::encode(s);
    const QString error = bytes.isEmpty()
        ? tr("the picture's path is longer than %n bytes", nullptr, puzzlefile::MaxPathBytes)
        : puzzlefile::writeWhole(s.PzlFile, bytes);
    if (error.isEmpty())
        m_platform.messages.show(tr("Puzzle Saved"), tr("Saved"), MsgStyle::Information);
    else
        m_platform.messages.show(tr("The puzzle cannot be saved in %1: %2.").arg(s.PzlFile, error),
            tr("Save - ERROR"), MsgStyle::Critical);
}

void vxmain::cb_load_Click()
{
    if (!m_state.allows(Command::LoadGame))
        return;
    if (!QFileInfo(m_state.PzlFile).isFile()) {
        m_platform.messages.show(tr("No Saved Puzzle Found"), tr("Load Saved Puzzle"), MsgStyle::Information);
        return;
    }
    m_platform.pointers.set(PointerShape::Hourglass);
    // Nothing of the game changes until the whole file is read and found sound.
    const CheckedFile c = readChecked(m_state.PzlFile);
    if (c.error.isEmpty()) {
        showLoaded(c.saved);
        return;
    }
    if (c.pictureLost)
        endWithoutPuzzle();
    m_platform.pointers.set(PointerShape::Default);
    m_platform.messages.show(c.error, tr("Open - ERROR"), MsgStyle::Critical);
}

void vxmain::showLoaded(const puzzlefile::SavedPuzzle &saved)
{
    PuzzleState &s = m_state;
    const PuzzleState before = s;
    for (PictureBox *box : vxpcs)
        box->hide();
    puzzlefile::takeOver(saved, s);
    // The buttons show the saved grid colour and type while the picture comes up.
    showCodes();
    // The picture is laid out for the saved type and size; it fails before the board changes, and has
    // told the player why.
    if (!LoadPic(QStringLiteral("Load"))) {
        s = before;
        showCodes();
        endWithoutPuzzle();
        return;
    }
    s.InPlay = true;
    // Drawn on a cleared board, as the scramble draws it, so the puzzle looks exactly as it was saved.
    vxrz->clearPicture();
    drawBoard();
    drawTrayHeld();
    DrawLines();
    resetCursor();
    m_platform.pointers.set(PointerShape::Default);
}

void vxmain::showCodes()
{
    const bool black = m_state.GridColor == Codes::BlackColor;
    cb_grid->setFace(faceResource(black ? QStringLiteral("cb_grid_b") : QStringLiteral("cb_grid_w")));
    cb_grid->Tag = black ? Codes::Black : Codes::White;
    const bool drag = m_state.PuzType == Codes::Drag;
    cb_type->setFace(faceResource(drag ? QStringLiteral("cb_type_d") : QStringLiteral("cb_type_s")));
    cb_type->Tag = drag ? Codes::Drag : Codes::Slide;
}

void vxmain::endWithoutPuzzle()
{
    m_state.InPlay = false;
    m_state.PicFile.clear();
    vxrz->clearPicture();
    hideFrameBars();
    for (PictureBox *box : vxpcs)
        box->hide();
}

void vxmain::cb_exit_Click()
{
    PuzzleState &s = m_state;
    if (!s.allows(Command::Exit))
        return;
    // An armed hint is dropped first, so that the save can pass its guard.
    s.HintMode = false;
    m_platform.pointers.set(PointerShape::Default);
    if (s.InPlay
        && m_platform.messages.show(tr("Save Current Puzzle"), tr("Save on Exit"), MsgStyle::YesNoQuestion)
            == MsgAnswer::Yes)
        cb_save_Click();
    emit exitRequested();
}
