#pragma once

#include <QAbstractTableModel>
#include <array>

#include <QIcon>

/// The cells of the grid for a view: reads them from the session at the moment of painting and holds none.
/// Row 0 of the model is point 1, column 0 is set 1.
class GridModel : public QAbstractTableModel {
public:
    explicit GridModel(QObject* parent);

    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : rows; }
    int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : columns; }
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    void refresh(); ///< the session's cells, headings and size have changed

private:
    int rows = 0;
    int columns = 0;
    std::array<QIcon, 5> marks; ///< by CellMark
};
