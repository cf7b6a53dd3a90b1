// DrawLines: the grid over the board, dotted between neighbours that already fit as in the picture and
// solid elsewhere; and the grid colour toggle.
#include "app/vxmain.h"
#include "platform/facebutton.h"
#include "platform/picturebox.h"

void vxmain::DrawLines()
{
    PuzzleState &s = m_state;
    const Integer N = s.GridN;
    const QRgb color = fromBgr(s.GridColor);
    // An empty place (type "D", its piece parked) fits nothing: its boundaries are solid.
    auto homeOf = [&](int q, Integer &col, Integer &row) {
        const Integer home = s.Board[q].Home;
        s.GetCRfromPos(home);
        col = s.PosCol;
        row = s.PosRow;
        return home >= 0;
    };
    Integer p = 0;
    for (Integer r = 0; r < N; ++r) {
        for (Integer c = 0; c < N; ++c, ++p) {
            Integer C1, R1, C2, R2;
            const bool tile = homeOf(p, C1, R1);
            if (c < N - 1) {
                const bool next = homeOf(p + 1, C2, R2);
                s.Find_XY(p + 1);
                const bool fits = tile && next && C1 == C2 - 1 && R1 == R2;
                vxrz->drawLine(s.PosX, s.PosY, s.PosX, s.PosY + s.TileH, color,
                    fits ? LineStyle::Dotted : LineStyle::Solid);
            } else {
                s.Find_XY(p);
                vxrz->drawLine(s.PosX + s.TileW, s.PosY, s.PosX + s.TileW, s.PosY + s.TileH, color);
            }
            if (r < N - 1) {
                const bool below = homeOf(p + N, C2, R2);
                s.Find_XY(p + N);
                const bool fits = tile && below && R1 == R2 - 1 && C1 == C2;
                vxrz->drawLine(s.PosX, s.PosY, s.PosX + s.TileW, s.PosY, color,
                    fits ? LineStyle::Dotted : LineStyle::Solid);
            } else {
                s.Find_XY(p);
                vxrz->drawLine(s.PosX, s.PosY + s.TileH, s.PosX + s.TileW, s.PosY + s.TileH, color);
            }
        }
    }
    vxrz->drawLine(0, 0, vxrz->width(), 0, color);
    vxrz->drawLine(0, 0, 0, vxrz->height(), color);
    vxrz->refresh();
}

void vxmain::cb_grid_Click()
{
    PuzzleState &s = m_state;
    if (!s.allows(Command::Grid))
        return;
    if (cb_grid->Tag == Codes::Black) {
        cb_grid->setFace(faceResource(QStringLiteral("cb_grid_w")));
        s.GridColor = Codes::WhiteColor;
        cb_grid->Tag = Codes::White;
    } else {
        cb_grid->setFace(faceResource(QStringLiteral("cb_grid_b")));
        s.GridColor = Codes::BlackColor;
        cb_grid->Tag = Codes::Black;
    }
    for (int i = 0; i < s.GridN; ++i)
        outlineTrayBox(i);
    if (!s.PicFile.isEmpty() && s.InPlay)
        DrawLines();
}
