// Choosing a picture file: the open dialog, asked again until an acceptable file or a cancel, and the
// "Open Image" command that puts the accepted picture on the board; a file dropped on the window takes
// the same road.
#include "app/vxmain.h"
#include "platform/shapes.h"

#include <QDragEnterEvent>
#include <QFileInfo>
#include <QMimeData>

namespace
{
constexpr int Flags = OpenFlags::HideReadOnly | OpenFlags::ExtensionDifferent | OpenFlags::PathMustExist
    | OpenFlags::FileMustExist;
} // namespace

void vxmain::PickImageFile()
{
    PuzzleState &s = m_state;
    s.OpenFile.clear();
    // A run that ends while a refusal is shown offers no new dialog.
    while (!m_ending) {
        const std::optional<FileChoice> choice = m_platform.files.open(
            tr("Graphic Files(*.jpg;*.gif;*.bmp)") + QStringLiteral("|*.jpg;*.gif;*.bmp"), Flags);
        if (!choice)
            return;
        if (acceptPicture(*choice))
            return;
    }
}

bool vxmain::acceptPicture(const FileChoice &choice)
{
    PuzzleState &s = m_state;
    // Pictures already in the library are picked from the library window instead.
    if (choice.fileName.left(s.LibPath.length()) == s.LibPath) {
        m_platform.messages.show(
            tr("This Picture is Already in the Library"), tr("Open"), MsgStyle::Information);
        return false;
    }
    const QString ext = choice.fileTitle.right(4);
    if (ext != QLatin1String(".bmp") && ext != QLatin1String(".gif") && ext != QLatin1String(".jpg")) {
        m_platform.messages.show(
            tr("File Extension Must Be jpg, gif, or bmp"), tr("Open - ERROR"), MsgStyle::OkOnly);
        return false;
    }
    s.OpenFile = choice.fileName;
    s.OpenTitle = choice.fileTitle;
    return true;
}

void vxmain::cb_new_Click()
{
    PuzzleState &s = m_state;
    if (!s.allows(Command::NewPicture))
        return;
    PickImageFile();
    if (!s.OpenFile.isEmpty())
        openAccepted();
}

void vxmain::openAccepted()
{
    PuzzleState &s = m_state;
    // A picture that cannot be shown leaves the board, the picture and the puzzle as they were.
    const QString previous = s.PicFile;
    const bool wasInPlay = s.InPlay;
    const bool framed = vxfr_t->isVisible();
    hideFrameBars();
    s.InPlay = false;
    s.PicFile = s.OpenFile;
    if (!LoadPic(QStringLiteral("Load"))) {
        s.PicFile = previous;
        s.InPlay = wasInPlay;
        showFrameBars(framed);
    }
}

void vxmain::Form_DragDrop(const QString &path)
{
    PuzzleState &s = m_state;
    // Only while "Open Image" itself could be pressed: the command bar shown, the guard passed, no walk.
    if (!fr_cmd->isVisible() || !s.allows(Command::NewPicture) || m_scrambling)
        return;
    s.OpenFile.clear();
    if (acceptPicture(FileChoice { path, QFileInfo(path).fileName() }))
        openAccepted();
}

void vxmain::dragEnterEvent(QDragEnterEvent *event)
{
    // One local file is taken; whether it is a picture the game can use is told on the drop.
    const QList<QUrl> urls = event->mimeData()->urls();
    if (urls.size() == 1 && urls.constFirst().isLocalFile())
        event->acceptProposedAction();
}

void vxmain::dropEvent(QDropEvent *event)
{
    const QList<QUrl> urls = event->mimeData()->urls();
    if (urls.size() != 1 || !urls.constFirst().isLocalFile())
        return;
    event->acceptProposedAction();
    Form_DragDrop(urls.constFirst().toLocalFile());
}
