#pragma once

#include <QWidget>
#include <vector>

class QToolButton;

/// The icon strip "Image1": a button for each command of the session's side, "Image1_2" for command 2. Flows
/// into as many rows as its width asks for.
class IconStrip : public QWidget {
public:
    explicit IconStrip(QWidget* parent);

    void retitle(); ///< buttons of the session's side, their names and tips in the language in force
    const QWidget* button(int command) const; ///< null when the strip has none

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override { return arrange(width, false); }
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void rebuild();
    int arrange(int width, bool place) const;

    std::vector<QToolButton*> buttons; ///< null for a gap
    std::vector<int> shown;            ///< the strip that they stand for
};
