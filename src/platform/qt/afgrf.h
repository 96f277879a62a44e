#pragma once

#include "platform/qt/afnum.h"

/// A number entry that stands over the plot, in its lower corner, so that the plot stays in view.
class afgrf : public afnum {
public:
    /// `over` is the plot, or the window that holds it.
    afgrf(const NumberPage& page, QWidget* over);

protected:
    void showEvent(QShowEvent* event) override;

private:
    QWidget* plot;
};
