#include "platform/qt/gridview.h"

#include "shell/words.h" // ahead of Qt, which has a global Display

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <algorithm>

#include "platform/qt/gridmodel.h"
#include "platform/qt/keymap.h"
#include "platform/qt/text.h"
#include "session/session.h"
#include "shell/gridedit.h"

namespace {

constexpr int cellPad = 7;
constexpr int markSize = 11;
constexpr int widestColumn = 320;

/// Keys that go on to another cell, and the way they take.
struct Step {
    int key, rows, columns;
};
constexpr Step steps[] = {{Qt::Key_Up, -1, 0},   {Qt::Key_Down, 1, 0}, {Qt::Key_Left, 0, -1},
                          {Qt::Key_Right, 0, 1}, {Qt::Key_Tab, 0, 1},  {Qt::Key_Backtab, 0, -1}};

const Step* stepof(int key) {
    const auto* const found =
        std::find_if(std::begin(steps), std::end(steps), [key](const Step& step) { return step.key == key; });
    return found == std::end(steps) ? nullptr : found;
}

/// A text that begins a cell: a number, a mark before it, or a label. Letters are keys of the program.
bool beginscell(const QString& typed) {
    return typed.size() == 1 && (typed[0].isDigit() || QStringLiteral("+-.,<>_").contains(typed[0]));
}

/// Row of the last cell of a set that holds something; 1 for an empty set.
int lastfilled(int set) {
    const auto column = static_cast<std::size_t>(set - 1);
    if (set < 1 || column >= session.gridCells.size()) return 1;
    const auto& cells = session.gridCells[column];
    const auto last =
        std::find_if(cells.rbegin(), cells.rend(), [](const std::string& cell) { return !cell.empty(); });
    return std::max(1, static_cast<int>(cells.rend() - last));
}

bool severalcells(const QString& text) {
    return text.contains(QLatin1Char('\t')) || text.contains(QLatin1Char('\n'))
           || text.contains(QLatin1Char('\r'));
}

/// The cell in hand is framed, so that its text stays readable; the rest of a selection is tinted.
class CellPainter : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyleOptionViewItem plain = option;
        const bool selected = option.state & QStyle::State_Selected;
        const bool current = index.row() + 1 == session.gridRow && index.column() + 1 == session.gridCol;
        plain.state &= ~(QStyle::State_Selected | QStyle::State_HasFocus);
        const QColor accent = option.palette.color(QPalette::Highlight);
        painter->fillRect(option.rect, option.palette.base()); // over the strong ground of a selection
        if (selected && session.gridMarked != 0) {
            QColor tint = accent;
            tint.setAlphaF(0.18F);
            painter->fillRect(option.rect, tint);
        }
        QStyledItemDelegate::paint(painter, plain, index);
        if (!current) return;
        painter->setPen(QPen(accent, 2));
        painter->drawRect(option.rect.adjusted(1, 1, -1, -1));
    }
};

} // namespace

CellBox::CellBox(QWidget* parent) : QLineEdit(parent) {
    setObjectName(QStringLiteral("TextGridInput"));
    setFrame(false);
    hide();
    connect(this, &QLineEdit::textEdited, this,
            [](const QString& typed) { session.gridEditText = utf8(typed); });
}

/// Sideways arrows walk within the text first, and leave it at its ends; a text just opened is left at once.
bool CellBox::leaves(const QKeyEvent& event) const {
    if (event.key() != Qt::Key_Left && event.key() != Qt::Key_Right) return true;
    if (event.modifiers() != Qt::NoModifier && event.modifiers() != Qt::KeypadModifier) return false;
    if (hasSelectedText() && selectedText() == text()) return true;
    if (hasSelectedText()) return false;
    return cursorPosition() == (event.key() == Qt::Key_Left ? 0 : text().size());
}

/// Tab is a step to the next cell here, not to the next widget.
bool CellBox::event(QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        auto* const key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab) {
            keyPressEvent(key);
            return true;
        }
    }
    return QLineEdit::event(event);
}

void CellBox::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        gridcommit();
    } else if (event->key() == Qt::Key_Escape) {
        gridleave();
    } else if (const Step* const step = stepof(event->key()); step && leaves(*event)) {
        gridmove(step->rows, step->columns);
    } else if (event->matches(QKeySequence::Paste) && severalcells(QApplication::clipboard()->text())) {
        gridleave();
        gridpaste();
    } else {
        QLineEdit::keyPressEvent(event);
    }
}

DataGrid::DataGrid(QWidget* parent)
    : QTableView(parent),
      model(new GridModel(this)),
      box(new CellBox(viewport())) {
    setObjectName(QStringLiteral("Grid1"));
    setModel(model);
    setItemDelegate(new CellPainter(this));
    setEditTriggers(NoEditTriggers);
    setSelectionMode(ContiguousSelection);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerItem);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    horizontalScrollBar()->setObjectName(QStringLiteral("HScroll1"));
    verticalScrollBar()->setObjectName(QStringLiteral("VScroll1"));
    setIconSize(QSize(markSize, markSize));
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setTabKeyNavigation(false);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + cellPad);
    verticalHeader()->setSectionsClickable(false);
    horizontalHeader()->setSectionsClickable(true);
    horizontalHeader()->setHighlightSections(true);
    horizontalHeader()->setDefaultSectionSize(13 * fontMetrics().horizontalAdvance(QLatin1Char('0')));
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this,
            [](int column) { gridheadingpress(column + 1); });
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this] {
        widthsByUser = widthsByUser || !fitting;
        showbox();
    });
    const auto follow = [this] { showbox(); };
    connect(horizontalScrollBar(), &QScrollBar::valueChanged, this, follow);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, follow);
    retitle();
}

void DataGrid::retitle() {
    setAccessibleName(phrase(Word::Data, " ", Word::Grid));
    box->setAccessibleName(phrase(Word::Data, " ", Word::Value));
    for (QAbstractButton* const corner :
         findChildren<QAbstractButton*>(QString(), Qt::FindDirectChildrenOnly))
        corner->setAccessibleName(accessibleName());
}

void DataGrid::repaintgrid() {
    model->refresh();
    fitcolumns();
    repaintcell();
}

/// As wide as the headings and the cells in view ask for, until the user has chosen a width.
void DataGrid::fitcolumns() {
    constexpr int looked = 60;
    if (widthsByUser) return;
    fitting = true;
    const int first = std::max(rowAt(0), 0);
    for (int column = 0; column < model->columnCount(); ++column) {
        QString longest = qs(gridheading(column + 1));
        for (int row = first; row < std::min(first + looked, model->rowCount()); ++row) {
            const QString text = qs(gridcell(column + 1, row + 1));
            if (text.size() > longest.size()) longest = text;
        }
        const int wanted = fontMetrics().horizontalAdvance(longest) + markSize + 4 * cellPad;
        const int width = std::clamp(wanted, horizontalHeader()->defaultSectionSize(), widestColumn);
        if (columnWidth(column) != width) setColumnWidth(column, width);
    }
    fitting = false;
}

void DataGrid::repaintcell() {
    const QModelIndex current = model->index(session.gridRow - 1, session.gridCol - 1);
    if (!current.isValid()) {
        selectionModel()->clear();
    } else {
        const CellRange range = gridselection();
        const QItemSelection cells(model->index(range.firstRow - 1, range.firstCol - 1),
                                   model->index(range.lastRow - 1, range.lastCol - 1));
        selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
        selectionModel()->select(cells, QItemSelectionModel::ClearAndSelect);
        scrollTo(current);
    }
    showbox();
}

/// The box over the cell in hand; as wide as its cell or its text, inside the grid.
void DataGrid::showbox() {
    const bool open = session.gridEditOpen != 0;
    if (!open) {
        const bool focused = box->hasFocus();
        box->hide();
        if (focused) setFocus();
        return;
    }
    QRect place = visualRect(model->index(session.gridRow - 1, session.gridCol - 1));
    const QString text = qs(session.gridEditText);
    const int wanted = fontMetrics().horizontalAdvance(text) + 3 * cellPad;
    place.setWidth(std::min(std::max(place.width(), wanted),
                            std::max(viewport()->width() - place.left(), place.width())));
    box->setGeometry(place);
    const bool opening = box->isHidden();
    if (box->text() != text) box->setText(text);
    if (!opening) return;
    box->show();
    box->setFocus();
    if (text == qs(gridcell(session.gridCol, session.gridRow))) box->selectAll();
}

void DataGrid::goes(const QModelIndex& index, bool extend) {
    if (index.isValid()) gridgo(index.row() + 1, index.column() + 1, extend);
}

void DataGrid::mousePressEvent(QMouseEvent* event) {
    const QModelIndex index = indexAt(event->pos());
    setFocus();
    dragged = false;
    if (event->button() == Qt::RightButton) {
        goes(index, false);
        if (index.isValid()) gridexplain(index.row() + 1, index.column() + 1);
        return;
    }
    if (event->button() != Qt::LeftButton) return;
    const bool extend = event->modifiers() & Qt::ShiftModifier;
    goes(index, extend);
    dragged = extend || !index.isValid();
    session.gridSelecting = index.isValid() ? 1 : 0;
}

void DataGrid::mouseMoveEvent(QMouseEvent* event) {
    if (session.gridSelecting == 0 || !(event->buttons() & Qt::LeftButton)) return;
    const QPoint inside(std::clamp(event->pos().x(), 0, viewport()->width() - 1),
                        std::clamp(event->pos().y(), 0, viewport()->height() - 1));
    const QModelIndex index = indexAt(inside);
    if (!index.isValid() || (index.row() + 1 == session.gridRow && index.column() + 1 == session.gridCol))
        return;
    dragged = true;
    goes(index, true);
}

/// A press without a drag opens the edit box there.
void DataGrid::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const bool opens = session.gridSelecting != 0 && !dragged;
    session.gridSelecting = 0;
    if (opens) gridedit();
}

void DataGrid::mouseDoubleClickEvent(QMouseEvent* event) { mousePressEvent(event); }

bool DataGrid::event(QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        auto* const key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab) {
            keyPressEvent(key);
            return true;
        }
    }
    return QTableView::event(event);
}

/// Keys that go to another cell. False for any other key.
bool DataGrid::moves(const QKeyEvent& event) {
    const bool extend = event.modifiers() & Qt::ShiftModifier;
    const bool far = event.modifiers() & Qt::ControlModifier;
    const int page = std::max(session.gridVisibleRows - 1, 1);
    switch (event.key()) {
    case Qt::Key_PageUp: gridmove(-page, 0, extend); return true;
    case Qt::Key_PageDown: gridmove(page, 0, extend); return true;
    case Qt::Key_Home: gridgo(1, far ? 1 : session.gridCol, extend); return true;
    case Qt::Key_End: gridgo(lastfilled(session.gridCol), session.gridCol, extend); return true;
    default: break;
    }
    const Step* const step = stepof(event.key());
    if (!step) return false;
    const bool tab = event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab;
    gridmove(step->rows, step->columns, extend && !tab);
    return true;
}

void DataGrid::keyPressEvent(QKeyEvent* event) {
    if (session.dropMenuOpen == dropShown) {
        event->ignore();
        return;
    }
    if (moves(*event)) return;
    const bool plain = !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    if (plain && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter))
        gridcommit();
    else if (secondarykey(*event))
        gridexplain(session.gridRow, session.gridCol);
    else if (plain && event->key() == Qt::Key_Backspace)
        gridedit("");
    else if (plain && event->key() == Qt::Key_Space)
        gridedit();
    else if (plain && beginscell(event->text()))
        gridedit(utf8(event->text()));
    else
        event->ignore();
}

void DataGrid::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    const int rowHeight = std::max(verticalHeader()->defaultSectionSize(), 1);
    const int columnWidth = std::max(horizontalHeader()->defaultSectionSize(), 1);
    session.gridVisibleRows = static_cast<int16_t>(std::clamp(viewport()->height() / rowHeight, 1, 1000));
    session.gridVisibleCols = static_cast<int16_t>(std::clamp(viewport()->width() / columnWidth, 1, 1000));
    model->refresh();
    repaintcell();
}

void DataGrid::updateGeometries() {
    QTableView::updateGeometries();
    if (box) showbox();
}
