// Choosing a picture file: the open dialog, asked again until an acceptable file or a cancel, and the
// "Open Image" command that puts the accepted picture on the board.
#include "app/vxmain.h"
#include "platform/shapes.h"

namespace
{
const QString Filter = QStringLiteral("Graphic Files(*.jpg;*.gif;*.bmp)|*.jpg;*.gif;*.bmp");
constexpr int Flags = OpenFlags::HideReadOnly | OpenFlags::ExtensionDifferent | OpenFlags::PathMustExist
    | OpenFlags::FileMustExist;
} // namespace

void vxmain::PickImageFile()
{
    PuzzleState &s = m_state;
    s.OpenFile.clear();
    for (;;) {
        const std::optional<FileChoice> choice = m_platform.files.open(Filter, Flags);
        if (!choice)
            return;
        // Pictures already in the library are picked from the library window instead.
        if (choice->fileName.left(s.LibPath.length()) == s.LibPath) {
            m_platform.messages.show(QStringLiteral("This Picture is Already in the Library"),
                QStringLiteral("Open"), MsgStyle::Information);
            continue;
        }
        const QString ext = choice->fileTitle.right(4);
        if (ext != QLatin1String(".bmp") && ext != QLatin1String(".gif") && ext != QLatin1String(".jpg")) {
            m_platform.messages.show(QStringLiteral("File Extension Must Be jpg, gif, or bmp"),
                QStringLiteral("Open - ERROR"), MsgStyle::OkOnly);
            continue;
        }
        s.OpenFile = choice->fileName;
        s.OpenTitle = choice->fileTitle;
        return;
    }
}

void vxmain::cb_new_Click()
{
    PuzzleState &s = m_state;
    if (!s.allows(Command::NewPicture))
        return;
    PickImageFile();
    if (s.OpenFile.isEmpty())
        return;
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
