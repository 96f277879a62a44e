#pragma once

#include <QLineEdit>
#include <QTableView>

class GridModel;

/// The edit box "TextGridInput" over the cell in hand. Its text is the session's; keys that leave it go to
/// the grid's own functions.
class CellBox : public QLineEdit {
public:
    explicit CellBox(QWidget* parent);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool leaves(const QKeyEvent& event) const;
};

/// The data grid "Grid1" on the screen. Cell in hand, selection and edit box are the session's: presses and
/// keys go there, and repaintcell shows what came of them.
class DataGrid : public QTableView {
public:
    explicit DataGrid(QWidget* parent);

    void repaintgrid(); ///< cells, headings and size
    void repaintcell(); ///< cell in hand, selection, edit box
    void retitle();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void updateGeometries() override;

private:
    void goes(const QModelIndex& index, bool extend);
    bool moves(const QKeyEvent& event);
    void showbox();
    void fitcolumns();

    GridModel* model;
    CellBox* box;
    bool dragged = false;      ///< the mouse has left the cell that it was pressed on
    bool widthsByUser = false; ///< a column was made wider or narrower by hand
    bool fitting = false;
};
