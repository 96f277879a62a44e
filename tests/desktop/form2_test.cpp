#include "platform/qt/form2.h"

#include "shell/words.h" // ahead of Qt, which has a global Display

#include "desktop/windowfixture.h"

namespace {

using MainForm = WindowTest;

TEST_F(MainForm, TypedDataAreFittedAndPlotted) {
    const int empty = inked(picture("Picture1"));
    typecells({"10", "20", "30", "-40", "50"});
    key(Qt::Key_Return); // on the empty cell below: the run
    ASSERT_EQ(session.setFitted(1), 1);
    EXPECT_EQ(pointcount(1), 5);
    EXPECT_GT(session.etaFit(3, 1), 20);
    EXPECT_GT(inked(picture("Picture1")), empty) << "points and a line";
    keep("typed.png");
}

} // namespace
