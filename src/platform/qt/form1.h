#pragma once

#include <QDialog>
#include <vector>

class QLabel;
class QPushButton;
class QScrollArea;
class TitlePicture;

/// The start window: agreement before the main window opens, about box from within it, and splash.
class Form1 : public QDialog {
public:
    enum class Purpose {
        agreement, ///< Y accepts; X, Esc and closing reject
        about      ///< one OK
    };
    explicit Form1(Purpose purpose, QWidget* parent = nullptr);

    /// Shows the title alone for 1.2 seconds while events run; then accepts.
    void splash();

    /// Shows the title alone with a caption, without waiting: while a long step of the start goes on. It
    /// goes when another Form1, a prompt or the main window opens.
    static void showwaiting(const QString& caption);
    static void closewaiting();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void buildpanels();
    void buildbuttons();
    void settexts();
    void hidepanels();
    void fit();
    void chooselanguage();
    void picturepressed();

    Purpose purpose;
    std::size_t feature = 0; ///< line in view under the title; that of the language is the last
    TitlePicture* picture;
    QScrollArea* panelArea;
    std::vector<QLabel*> panels; ///< title, authors, advisor, address, disclaimer
    QPushButton* agree = nullptr;
    QPushButton* leave = nullptr;
    QPushButton* language = nullptr;
};
