// The main window: builds its controls, runs start-up and routes window and mouse events to handlers.
#include "app/vxmain.h"

#include "app/boardaccess.h"
#include "platform/caption.h"
#include "platform/closewatch.h"
#include "platform/facebutton.h"
#include "platform/picturebox.h"
#include "platform/shapes.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWindowStateChangeEvent>
#include <cmath>

namespace
{
const QColor BoardBack(255, 192, 192);
const QColor FrameDark(128, 64, 64);
const QColor FrameBorder(192, 122, 133);
const QColor Red(255, 0, 0);
constexpr int OuterW = 806;
constexpr int OuterH = 606;
constexpr int FrameW = 3;

struct ButtonDesign {
    FaceButton *vxmain::*member;
    const char *face;
    const char *tip;
    int leftTwips;
};

const ButtonDesign Buttons[] = {
    { &vxmain::cb_new, "cb_new", QT_TRANSLATE_NOOP("vxmain", "Open Image"), 0 },
    { &vxmain::cb_lib, "cb_lib", QT_TRANSLATE_NOOP("vxmain", "Image Library"), 411 },
    { &vxmain::cb_load, "cb_load", QT_TRANSLATE_NOOP("vxmain", "Open Saved Game"), 822 },
    { &vxmain::cb_save, "cb_save", QT_TRANSLATE_NOOP("vxmain", "Save Current Game"), 1233 },
    { &vxmain::cb_type, "cb_type_s", QT_TRANSLATE_NOOP("vxmain", "Change Game Type"), 1644 },
    { &vxmain::cb_grid, "cb_grid_w", QT_TRANSLATE_NOOP("vxmain", "Set Grid Color"), 2055 },
    { &vxmain::cb_resize, "cb_resize", QT_TRANSLATE_NOOP("vxmain", "Set Number of Tiles"), 2466 },
    { &vxmain::cb_scramble, "cb_scramble", QT_TRANSLATE_NOOP("vxmain", "Scramble Tyles"), 2877 },
    { &vxmain::cb_full, "cb_full", QT_TRANSLATE_NOOP("vxmain", "Display Full Image"), 3288 },
    { &vxmain::cb_help, "cb_help", QT_TRANSLATE_NOOP("vxmain", "Find Tile Position"), 3699 },
    { &vxmain::cb_helpdoc, "cb_helpdoc", QT_TRANSLATE_NOOP("vxmain", "View Help"), 4110 },
    { &vxmain::cb_min, "cb_min", QT_TRANSLATE_NOOP("vxmain", "Minimize Game"), 4521 },
    { &vxmain::cb_exit, "cb_exit", QT_TRANSLATE_NOOP("vxmain", "Exit Game"), 4935 },
};
} // namespace

QString faceResource(const QString &name)
{
    return QStringLiteral(":/faces/%1.svg").arg(name);
}

vxmain::vxmain(const Platform &platform, const QString &programFolder, QWidget *parent)
    : QWidget(parent,
        // No title bar; a tool window keeps it off the taskbar, where the mini window stands in.
        Qt::Window | Qt::FramelessWindowHint | Qt::Tool)
    , m_platform(platform)
    , m_programFolder(QDir::cleanPath(programFolder))
{
    setWindowTitle(QString());
    setWindowIcon(QIcon(QStringLiteral(":/icon.svg")));
    setFixedSize(OuterW, OuterH);
    m_client = new QWidget(this);
    m_client->setGeometry(FrameW, FrameW, OuterW - 2 * FrameW, OuterH - 2 * FrameW);
    m_client->setAutoFillBackground(true);
    QPalette pal = m_client->palette();
    pal.setColor(QPalette::Window, Qt::black);
    m_client->setPalette(pal);
    m_client->installEventFilter(this);
    m_fineRatio = std::max(int(std::ceil(devicePixelRatioF())), 1);
    // Picture files dropped from the file manager open as "Open Image" would open them.
    setAcceptDrops(true);
    installBoardAccessibility();
    buildControls();
    Form_Load();
    // The caption stays empty on every desktop, not only in Qt's own idea of the title.
    clearNativeCaption(this);
    // Closed by the desktop while a modal window stands over it, the game ends all the same.
    m_closeWatch = std::make_unique<CloseWatch>(this, [this] { Form_Unload(); });
}

vxmain::~vxmain()
{
    // The small window has no parent: a run ended while it stands in for the game takes it along.
    delete vxmin;
}

void vxmain::buildControls()
{
    QWidget *c = m_client;
    vxframe_main = new ShapeBox(c, FrameDark, FrameDark, 1);
    vxframe_border = new ShapeBox(c, FrameBorder, FrameBorder, 1);
    vxframe_inner = new ShapeBox(c, FrameDark, FrameDark, 1);
    vxrz_s = new PictureBox(c, BoardBack);
    vxrz_s->hide();
    vxrz = new PictureBox(c, BoardBack);
    vxrz->setCursor(Qt::ArrowCursor);
    vxrz->setObjectName(QStringLiteral("board"));
    // The board takes the keys (Tab reaches it from the command bar); its own keys are filtered here.
    vxrz->setFocusPolicy(Qt::StrongFocus);
    vxrz->installEventFilter(this);
    m_cursorBox = new CursorOutline(vxrz);
    m_cursorBox->hide();
    hlpfr_rz = new ShapeBox(vxrz, Qt::transparent, Red, 2, false);
    hlpfr_rz->hide();
    vxblank = new PictureBox(c, BoardBack);
    vxblank->hide();
    hlpdoc = new PictureBox(c, Qt::white);
    hlpdoc->hide();
    vxpcs[0] = new PictureBox(c, BoardBack);
    vxpcs[0]->hide();
    for (ShapeBox **bar : { &vxfr_t, &vxfr_b, &vxfr_l, &vxfr_r }) {
        *bar = new ShapeBox(c, Red, Red, 0);
        (*bar)->hide();
    }
    hlpfr_pcs = new ShapeBox(c, Qt::transparent, Red, 2, false);
    hlpfr_pcs->hide();
    buildCommandBar();
    lblmsg = new TextLabel(
        c, tr("Click Image Continue To Game"), QColor(0, 255, 255), QColor(128, 128, 128), Qt::AlignCenter);
    lblmsg->resize(fr_cmd->width() + 2, fr_cmd->height() + 2);
    lblmsg->hide();
    imglogo = new SvgImage(c, QStringLiteral(":/logo.svg"));
    imglogo->resize(132, 24);
    lbllogo = new TextLabel(c, tr("Picture Tile Puzzle"), QColor(242, 239, 232), Qt::black, Qt::AlignCenter);
    lbllogo->resize(132, 24);
    // The drag image floats above everything else while a piece is carried.
    vxdrag = new PictureBox(c, BoardBack);
    vxdrag->setAttribute(Qt::WA_TransparentForMouseEvents);
    vxdrag->hide();
    for (PictureBox *box : { vxrz_s, vxrz, vxblank, hlpdoc, vxpcs[0], vxdrag })
        box->setFineRatio(m_fineRatio);
    buildHelpViews();
    connect(
        vxrz, &PictureBox::mousePressed, this, [this](Qt::MouseButton b, Qt::KeyboardModifiers m, QPointF p) {
            // A press hides the keyboard's cursor, unless the keys carry a piece (the press is refused then).
            if (m_state.DragIdx < 0)
                m_cursorShown = false;
            showCursor();
            vxrz_MouseDown(b, m, float(p.x()), float(p.y()));
        });
}

void vxmain::buildCommandBar()
{
    fr_cmd = new QWidget(m_client);
    fr_cmd->resize(353, 24);
    for (const ButtonDesign &d : Buttons) {
        auto *b = new FaceButton(fr_cmd, faceResource(QString::fromLatin1(d.face)), tr(d.tip));
        // Design positions are in twips: 15 to a pixel, placed on whole pixels.
        b->setGeometry(int(vb::roundHalfEven(d.leftTwips / 15.0)), 1, 22, 22);
        this->*(d.member) = b;
    }
    connect(cb_new, &QAbstractButton::clicked, this, &vxmain::cb_new_Click);
    connect(cb_lib, &QAbstractButton::clicked, this, &vxmain::cb_lib_Click);
    connect(cb_load, &QAbstractButton::clicked, this, &vxmain::cb_load_Click);
    connect(cb_save, &QAbstractButton::clicked, this, &vxmain::cb_save_Click);
    connect(cb_type, &QAbstractButton::clicked, this, &vxmain::cb_type_Click);
    connect(cb_grid, &QAbstractButton::clicked, this, &vxmain::cb_grid_Click);
    connect(cb_resize, &QAbstractButton::clicked, this, &vxmain::cb_resize_Click);
    connect(cb_scramble, &QAbstractButton::clicked, this, &vxmain::cb_scramble_Click);
    connect(cb_full, &QAbstractButton::clicked, this, &vxmain::cb_full_Click);
    connect(cb_help, &QAbstractButton::clicked, this, &vxmain::cb_help_Click);
    connect(cb_helpdoc, &QAbstractButton::clicked, this, &vxmain::cb_helpdoc_Click);
    connect(cb_min, &QAbstractButton::clicked, this, &vxmain::cb_min_Click);
    connect(cb_exit, &QAbstractButton::clicked, this, &vxmain::cb_exit_Click);
}

void vxmain::Form_Load()
{
    PuzzleState &s = m_state;
    s.DragIdx = -1;
    s.MinState = -1;
    // The single-instance rule is applied by the program before the window is made.
    s.setGridSize(6);
    for (int i = 1; i < Codes::TraySlots; ++i) {
        vxpcs[i] = new PictureBox(m_client, vxpcs[0]->backColor());
        vxpcs[i]->setFineRatio(m_fineRatio);
        vxpcs[i]->hide();
    }
    for (int i = 0; i < Codes::TraySlots; ++i) {
        connect(vxpcs[i], &PictureBox::mousePressed, this,
            [this, i](Qt::MouseButton b, Qt::KeyboardModifiers m, QPointF p) {
                if (m_state.DragIdx < 0)
                    m_cursorShown = false;
                showCursor();
                vxpcs_MouseDown(i, b, m, float(p.x()), float(p.y()));
            });
        vxpcs[i]->stackUnder(vxdrag);
    }
    s.PzlFile = m_programFolder + QStringLiteral("/varno.pzl");
    s.LibPath = m_programFolder + QStringLiteral("/lib");
    // A missing library folder is created; a failure leaves the game without a library, nothing more.
    if (!QFileInfo::exists(s.LibPath))
        QDir().mkdir(s.LibPath);
    s.PuzType = Codes::Slide;
    s.InPlace = 0;
    s.GridColor = Codes::WhiteColor;
    s.TileTotal = vb::checked16(s.GridN * s.GridN);
    cb_grid->Tag = Codes::White;
    cb_type->Tag = Codes::Slide;
    s.InPlay = false;
    s.HintMode = false;
    // The command bar shares the window's black background (the client's palette).
    vxrz->setBoxSize(520, 390);
    vxrz->clearPicture();
    fr_cmd->move(fr_cmd->x(), 0);
    hlpdoc->printLine(QString(), QColor(0, 0, 255));
    hlpdoc->printLine(tr("Click Here To Close Help"), QColor(0, 0, 255));
}

void vxmain::hideFrameBars()
{
    for (ShapeBox *bar : { vxfr_t, vxfr_b, vxfr_l, vxfr_r })
        bar->hide();
}

void vxmain::showFrameBars(bool shown)
{
    for (ShapeBox *bar : { vxfr_t, vxfr_b, vxfr_l, vxfr_r })
        bar->setVisible(shown);
}

void vxmain::outlineTrayBox(int i)
{
    const PuzzleState &s = m_state;
    vxpcs[i]->drawRectOutline(0, 0, s.TileW - 1, s.TileH - 1, fromBgr(s.GridColor));
}

void vxmain::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    Form_Resize();
}

void vxmain::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange)
        Form_Resize();
}

void vxmain::closeEvent(QCloseEvent *event)
{
    // Whoever closes the window (Alt+F4, a taskbar, a session's end) ends the game, never just hides it.
    event->accept();
    Form_Unload();
}

void vxmain::Form_Unload()
{
    if (m_ending)
        return;
    m_ending = true;
    emit exitRequested();
}

bool vxmain::event(QEvent *event)
{
    // An activation still queued when the window was hidden is no return from the mini window.
    if (event->type() == QEvent::WindowActivate && isVisible())
        Form_Activate();
    return QWidget::event(event);
}

void vxmain::paintEvent(QPaintEvent *)
{
    // The 3-pixel dialog frame round the client area: light on the top and left, dark below and right.
    QPainter p(this);
    const QColor light(200, 200, 200), mid(150, 150, 150), dark(64, 64, 64);
    p.fillRect(rect(), mid);
    p.fillRect(QRect(0, 0, width(), 1), light);
    p.fillRect(QRect(0, 0, 1, height()), light);
    p.fillRect(QRect(0, height() - 1, width(), 1), dark);
    p.fillRect(QRect(width() - 1, 0, 1, height()), dark);
}

bool vxmain::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == vxrz && event->type() == QEvent::KeyPress)
        return boardKey(static_cast<QKeyEvent *>(event)->key());
    // Moves and the release during a drag reach the window wherever the pointer goes (it is grabbed).
    if (watched == m_client) {
        if (event->type() == QEvent::MouseMove) {
            const auto *me = static_cast<QMouseEvent *>(event);
            Form_MouseMove(float(me->position().x()), float(me->position().y()));
        } else if (event->type() == QEvent::MouseButtonRelease) {
            const auto *me = static_cast<QMouseEvent *>(event);
            Form_MouseUp(float(me->position().x()), float(me->position().y()));
        }
    }
    return QWidget::eventFilter(watched, event);
}

void vxmain::keyPressEvent(QKeyEvent *event)
{
    if (!Form_KeyDown(event->key()))
        QWidget::keyPressEvent(event);
}
