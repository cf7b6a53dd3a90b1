// The full image view and the help document: each stands in place of the board and hides the command
// bar until a click on its own picture brings the game back as it was.
#include "app/vxmain.h"
#include "help/helppicture.h"
#include "platform/picturebox.h"
#include "platform/shapes.h"

namespace
{
QFont arialBold12()
{
    QFont f(QStringLiteral("Arial"), 12, QFont::Bold);
    // A metric twin stands in where the font itself is missing.
    f.setFamilies({ QStringLiteral("Arial"), QStringLiteral("Liberation Sans") });
    return f;
}
} // namespace

void vxmain::buildHelpViews()
{
    lblmsg->setFont(arialBold12());
    // A 594 x 600 box whose 2-pixel border holds the 590 x 596 picture.
    hlpdoc->setBorder(2);
    hlpdoc->setBoxSize(594, 600);
    hlpdoc->setFont(arialBold12());
    // The picture itself waits for the first showing of the help: drawing its text and faces took about a
    // third of start-up, for a view most games never open.
    connect(vxrz_s, &PictureBox::clicked, this, &vxmain::vxrz_s_Click);
    connect(hlpdoc, &PictureBox::clicked, this, &vxmain::hlpdoc_Click);
}

void vxmain::showTrayAfterView()
{
    const PuzzleState &s = m_state;
    if (s.PuzType == Codes::Drag)
        for (int i = 0; i < Codes::TraySlots && i < s.GridN; ++i)
            vxpcs[i]->show();
    // The keys went nowhere while the board was hidden: they come back to it.
    vxrz->setFocus(Qt::OtherFocusReason);
}

void vxmain::cb_full_Click()
{
    if (!m_state.allows(Command::FullImage))
        return;
    lblmsg->show();
    fr_cmd->hide();
    vxrz->hide();
    for (PictureBox *box : vxpcs)
        box->hide();
    vxrz_s->show();
    vxframe_border->setFillColor(QColor(0, 255, 255));
}

void vxmain::vxrz_s_Click()
{
    lblmsg->hide();
    fr_cmd->show();
    vxrz->show();
    showTrayAfterView();
    vxrz_s->hide();
    vxframe_border->setFillColor(vxframe_border->borderColor());
}

void vxmain::drawHelpDocument()
{
    m_helpDrawn = true;
    const int line = QFontMetrics(hlpdoc->font(), &hlpdoc->image()).height();
    // Start-up printed its lines on the white paper, in the free line the drawing leaves for them; the
    // drawing goes under them, so the box looks as if it had been drawn first. A dense screen's fine
    // drawing gets the same, at its own resolution.
    const auto drawUnder = [line](QImage &paper) {
        QImage drawing(paper.size(), QImage::Format_RGB32);
        drawing.setDevicePixelRatio(paper.devicePixelRatio());
        drawHelpPicture(drawing, line);
        const QRgb white = qRgb(255, 255, 255);
        for (int y = 0; y < paper.height(); ++y) {
            auto *row = reinterpret_cast<QRgb *>(paper.scanLine(y));
            const auto *under = reinterpret_cast<const QRgb *>(drawing.constScanLine(y));
            for (int x = 0; x < paper.width(); ++x)
                if (row[x] == white)
                    row[x] = under[x];
        }
    };
    drawUnder(hlpdoc->image());
    if (QImage *fine = hlpdoc->fine())
        drawUnder(*fine);
    hlpdoc->refresh();
}

void vxmain::cb_helpdoc_Click()
{
    if (!m_state.allows(Command::HelpDocument))
        return;
    if (!m_helpDrawn)
        drawHelpDocument();
    fr_cmd->hide();
    vxrz->hide();
    for (PictureBox *box : vxpcs)
        box->hide();
    hlpdoc->move(vb::CLng(m_client->width()) / 2 - vb::CLng(hlpdoc->width()) / 2, 4);
    // The document lies over everything else in the window, the frame bars and the logo included.
    hlpdoc->raise();
    hlpdoc->show();
}

void vxmain::hlpdoc_Click()
{
    fr_cmd->show();
    vxrz->show();
    showTrayAfterView();
    hlpdoc->hide();
}
