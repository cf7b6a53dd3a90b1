// The size dialog, laid out from its design in twips (15 to a pixel).
#include "options/rzfrm.h"
#include "platform/caption.h"

#include <QButtonGroup>
#include <QIcon>
#include <QPushButton>
#include <QRadioButton>

namespace
{
int px(int twips)
{
    return int(vb::roundHalfEven(twips / 15.0));
}

struct OptionDesign {
    const char *caption;
    int left, top, width, height;
};
const OptionDesign Options[10] = {
    { " 2 * 2", 900, 375, 975, 300 },
    { " 3 * 3", 900, 690, 975, 300 },
    { " 4 * 4", 900, 1005, 975, 300 },
    { " 5 * 5", 900, 1320, 975, 300 },
    { " 6 * 6", 900, 1635, 975, 300 },
    { " 7 * 7", 2595, 375, 975, 300 },
    { " 8 * 8", 2595, 690, 975, 300 },
    { " 9 * 9", 2595, 1005, 975, 300 },
    { " 10 * 10", 2595, 1320, 1275, 300 },
    { " 11 * 11", 2595, 1635, 1395, 360 },
};
} // namespace

rzfrm::rzfrm(Integer &GridN, QWidget *parent)
    : QDialog(parent,
        Qt::Dialog | Qt::MSWindowsFixedSizeDialogHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint)
    , m_gridN(GridN)
{
    setWindowTitle(tr("Puzzle Size"));
    setFixedSize(px(4680), px(3180));
    setAutoFillBackground(true);
    QPalette pal = palette();
    pal.setColor(QPalette::Window, QColor(0x80, 0x80, 0x80));
    setPalette(pal);
    auto *group = new QButtonGroup(this);
    for (int i = 0; i < 10; ++i) {
        const OptionDesign &d = Options[i];
        szopt[i] = new QRadioButton(QString::fromLatin1(d.caption), this);
        szopt[i]->setGeometry(px(d.left), px(d.top), px(d.width), px(d.height));
        group->addButton(szopt[i], i);
    }
    connect(group, &QButtonGroup::idClicked, this, &rzfrm::szopt_Click);
    cb_ok = new QPushButton(QIcon(QStringLiteral(":/faces/ok.svg")), tr("&Resize"), this);
    cb_ok->setGeometry(px(2505), px(2265), px(1950), px(645));
    cb_ok->setIconSize(QSize(24, 24));
    cb_ok->setDefault(true);
    cb_cancel = new QPushButton(QIcon(QStringLiteral(":/faces/cancel.svg")), tr("&Cancel"), this);
    cb_cancel->setGeometry(px(210), px(2280), px(1950), px(645));
    cb_cancel->setIconSize(QSize(24, 24));
    connect(cb_ok, &QPushButton::clicked, this, &rzfrm::cb_ok_Click);
    connect(cb_cancel, &QPushButton::clicked, this, &rzfrm::cb_cancel_Click);
    centreOnScreen(this, parent);
    Form_Load();
}

void rzfrm::Form_Load()
{
    // Selecting the current size counts as the player's click on it.
    const int index = m_gridN - 2;
    if (index >= 0 && index < 10) {
        szopt[index]->setChecked(true);
        szopt_Click(index);
    }
}

void rzfrm::szopt_Click(int Index)
{
    ChosenSize = Integer(Index + 2);
}

void rzfrm::cb_ok_Click()
{
    if (ChosenSize > 1)
        m_gridN = ChosenSize;
    accept();
}

void rzfrm::cb_cancel_Click()
{
    reject();
}
