#include "platform/qt/gridmodel.h"

#include <algorithm>

#include "platform/qt/icons.h"
#include "platform/qt/text.h"
#include "session/session.h"
#include "shell/gridedit.h"

namespace {

/// What a mark is called, and its picture.
struct MarkLook {
    const char* picture;
    Word name;
    Word further = Word::None_;
};
constexpr MarkLook looks[] = {{"", Word::None_},
                              {"suspended", Word::Suspension},
                              {"discovered", Word::Discovery},
                              {"interval", Word::Interval},
                              {"unreadable", Word::Bad, Word::Data}};

QString markname(CellMark mark) {
    const MarkLook& look = looks[static_cast<std::size_t>(mark)];
    if (look.further == Word::None_) return phrase(look.name);
    return phrase(look.name, " ", look.further);
}

/// What a screen reader says: the text, and its mark in words.
QString spoken(const std::string& cell, CellMark mark) {
    if (mark == CellMark::none) return qs(cell);
    return qs(cell) + QStringLiteral(", ") + markname(mark);
}

} // namespace

GridModel::GridModel(QObject* parent) : QAbstractTableModel(parent) {
    for (std::size_t i = 1; i < marks.size(); ++i) marks[i] = tintedicon(qs(looks[i].picture));
    refresh();
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const int set = index.column() + 1;
    const int point = index.row() + 1;
    switch (role) {
    case Qt::DisplayRole: return qs(gridcell(set, point) + gridordinate(set, point));
    case Qt::DecorationRole: {
        const CellMark mark = gridmark(set, point);
        if (mark == CellMark::none) return {};
        return marks[static_cast<std::size_t>(mark)];
    }
    case Qt::ToolTipRole: {
        const CellMark mark = gridmark(set, point);
        return mark == CellMark::none ? QVariant() : QVariant(markname(mark));
    }
    case Qt::AccessibleTextRole: return spoken(gridcell(set, point), gridmark(set, point));
    default: return {};
    }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(orientation == Qt::Horizontal ? Qt::AlignCenter
                                                                 : Qt::AlignRight | Qt::AlignVCenter);
    if (role != Qt::DisplayRole) return {};
    if (orientation == Qt::Vertical) return section + 1;
    return qs(gridheading(section + 1));
}

void GridModel::refresh() {
    const int wantedRows = gridrows();
    const int wantedColumns = gridcolumns();
    if (wantedRows != rows || wantedColumns != columns) {
        beginResetModel();
        rows = wantedRows;
        columns = wantedColumns;
        endResetModel();
        return;
    }
    Q_EMIT dataChanged(index(0, 0), index(rows - 1, columns - 1));
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, columns - 1);
}
