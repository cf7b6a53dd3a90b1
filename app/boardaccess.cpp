// The board for a screen reader: a table of holders (the board's places in rows, the tray boxes as the
// last row), each named by its place and what stands on it; the holder under the keyboard's cursor has
// the focus and describes the last thing that happened. As a table, readers can say where a holder is and
// move by rows and columns; nothing in it is ever selected.
#include "app/boardaccess.h"

#include "app/vxmain.h"
#include "platform/picturebox.h"

#include <QAccessibleWidget>
#include <vector>

namespace
{
class BoardAccessible : public QAccessibleWidget, public QAccessibleTableInterface
{
public:
    explicit BoardAccessible(QWidget *board)
        : QAccessibleWidget(board, QAccessible::Table)
    {
    }
    ~BoardAccessible() override
    {
        for (QAccessible::Id id : m_cells)
            if (id)
                QAccessible::deleteAccessibleInterface(id);
    }
    vxmain *game() const
    {
        return qobject_cast<vxmain *>(widget()->window());
    }
    QString text(QAccessible::Text t) const override
    {
        if (t == QAccessible::Name)
            return vxmain::tr("Puzzle board");
        if (t == QAccessible::Description)
            return game()->announcement();
        return QAccessibleWidget::text(t);
    }
    // Holders only while a puzzle is in play.
    int childCount() const override
    {
        return game()->state().InPlay ? game()->holderCount() : 0;
    }
    QAccessibleInterface *child(int index) const override;
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        for (int i = 0; i < int(m_cells.size()); ++i)
            if (m_cells[std::size_t(i)] && QAccessible::accessibleInterface(m_cells[std::size_t(i)]) == child)
                return i < childCount() ? i : -1;
        return -1;
    }
    QAccessibleInterface *focusChild() const override
    {
        return widget()->hasFocus() ? child(game()->cursorHolder()) : nullptr;
    }
    QAccessibleInterface *childAt(int x, int y) const override
    {
        for (int i = 0; i < childCount(); ++i)
            if (child(i)->rect().contains(x, y))
                return child(i);
        return nullptr;
    }

    void *interface_cast(QAccessible::InterfaceType t) override
    {
        if (t == QAccessible::TableInterface)
            return static_cast<QAccessibleTableInterface *>(this);
        return QAccessibleWidget::interface_cast(t);
    }
    int columnCount() const override
    {
        return childCount() > 0 ? game()->state().GridN : 0;
    }
    int rowCount() const override
    {
        return columnCount() > 0 ? childCount() / columnCount() : 0;
    }
    QAccessibleInterface *cellAt(int row, int column) const override
    {
        return column >= 0 && column < columnCount() ? child(row * columnCount() + column) : nullptr;
    }
    QAccessibleInterface *caption() const override
    {
        return nullptr;
    }
    QAccessibleInterface *summary() const override
    {
        return nullptr;
    }
    QString columnDescription(int) const override
    {
        return {};
    }
    QString rowDescription(int) const override
    {
        return {};
    }
    int selectedCellCount() const override
    {
        return 0;
    }
    QList<QAccessibleInterface *> selectedCells() const override
    {
        return {};
    }
    int selectedColumnCount() const override
    {
        return 0;
    }
    QList<int> selectedColumns() const override
    {
        return {};
    }
    int selectedRowCount() const override
    {
        return 0;
    }
    QList<int> selectedRows() const override
    {
        return {};
    }
    bool isColumnSelected(int) const override
    {
        return false;
    }
    bool isRowSelected(int) const override
    {
        return false;
    }
    bool selectRow(int) override
    {
        return false;
    }
    bool selectColumn(int) override
    {
        return false;
    }
    bool unselectRow(int) override
    {
        return false;
    }
    bool unselectColumn(int) override
    {
        return false;
    }
    void modelChange(QAccessibleTableModelChangeEvent *) override
    {
    }

private:
    mutable std::vector<QAccessible::Id> m_cells;
};

class HolderAccessible : public QAccessibleInterface, public QAccessibleTableCellInterface
{
public:
    HolderAccessible(BoardAccessible *board, int h)
        : m_board(board)
        , m_h(h)
    {
    }
    bool isValid() const override
    {
        return m_board->isValid() && m_h < m_board->childCount();
    }
    QObject *object() const override
    {
        return nullptr;
    }
    QWindow *window() const override
    {
        return m_board->window();
    }
    QAccessibleInterface *parent() const override
    {
        return m_board;
    }
    QAccessibleInterface *child(int) const override
    {
        return nullptr;
    }
    int childCount() const override
    {
        return 0;
    }
    int indexOfChild(const QAccessibleInterface *) const override
    {
        return -1;
    }
    QAccessibleInterface *childAt(int, int) const override
    {
        return nullptr;
    }
    QAccessibleInterface *focusChild() const override
    {
        return nullptr;
    }
    QString text(QAccessible::Text t) const override
    {
        const vxmain *g = m_board->game();
        if (!isValid())
            return {};
        if (t == QAccessible::Name)
            return g->holderName(m_h);
        if (t == QAccessible::Description && m_h == g->cursorHolder())
            return g->announcement();
        return {};
    }
    void setText(QAccessible::Text, const QString &) override
    {
    }
    QRect rect() const override
    {
        if (!isValid())
            return {};
        const QRect r = m_board->game()->holderRect(m_h);
        return QRect(m_board->game()->holderBox(m_h)->mapToGlobal(r.topLeft()), r.size());
    }
    QAccessible::Role role() const override
    {
        return QAccessible::Cell;
    }
    QAccessible::State state() const override
    {
        QAccessible::State st;
        st.focusable = true;
        if (!isValid())
            return st;
        const vxmain *g = m_board->game();
        st.focused = m_h == g->cursorHolder() && g->vxrz->hasFocus();
        st.invisible = !g->holderBox(m_h)->isVisible();
        return st;
    }

    void *interface_cast(QAccessible::InterfaceType t) override
    {
        return t == QAccessible::TableCellInterface ? static_cast<QAccessibleTableCellInterface *>(this)
                                                    : nullptr;
    }
    int columnIndex() const override
    {
        return m_h % m_board->game()->state().GridN;
    }
    int rowIndex() const override
    {
        return m_h / m_board->game()->state().GridN;
    }
    int columnExtent() const override
    {
        return 1;
    }
    int rowExtent() const override
    {
        return 1;
    }
    QList<QAccessibleInterface *> columnHeaderCells() const override
    {
        return {};
    }
    QList<QAccessibleInterface *> rowHeaderCells() const override
    {
        return {};
    }
    bool isSelected() const override
    {
        return false;
    }
    QAccessibleInterface *table() const override
    {
        return m_board;
    }

private:
    BoardAccessible *m_board;
    int m_h;
};

QAccessibleInterface *BoardAccessible::child(int index) const
{
    if (index < 0 || index >= childCount())
        return nullptr;
    if (std::size_t(index) >= m_cells.size())
        m_cells.resize(std::size_t(index) + 1, 0);
    QAccessible::Id &id = m_cells[std::size_t(index)];
    if (!id)
        id = QAccessible::registerAccessibleInterface(
            new HolderAccessible(const_cast<BoardAccessible *>(this), index));
    return QAccessible::accessibleInterface(id);
}

QAccessibleInterface *boardFactory(const QString &, QObject *object)
{
    auto *box = qobject_cast<PictureBox *>(object);
    if (box && box->objectName() == QLatin1String("board") && qobject_cast<vxmain *>(box->window()))
        return new BoardAccessible(box);
    return nullptr;
}
} // namespace

void installBoardAccessibility()
{
    static const bool installed = (QAccessible::installFactory(boardFactory), true);
    Q_UNUSED(installed);
}
