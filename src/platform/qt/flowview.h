#pragma once

#include <QWidget>

#include "shell/helppages.h"

/// The flow chart, drawn.
class FlowView : public QWidget {
public:
    explicit FlowView(FlowChart chart);
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QRectF boxat(const FlowBox& box) const;
    void drawbox(QPainter& painter, const FlowBox& box) const;
    void drawway(QPainter& painter, const FlowWay& way) const;

    FlowChart shown;
};
