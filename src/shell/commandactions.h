#pragma once

#include "options/pages.h"

/// What the commands do. Each ends with the cycle where data or options have changed.

void newdata();       ///< 0: asks about saving, then empties grid and plot
void opendialog();    ///< 2: file dialog, then openfile
void outputcommand(); ///< 6: "No Data", or the output page
void printcommand();  ///< 90: the same, explained first
void precisereading();
void sidemark();    ///< 51: sets or clears the mark of the side in hand, with the main options
void switchsides(); ///< 53: hands the data to the other side of the program
void copyplotcommand();
void singleset(); ///< 61: the active set alone, or all again
void librarycommand();
void resetstandard(); ///< 85: every option as delivered, after a question
void rangechange();   ///< 88, 89: the limits of both axes
void aboutcommand();  ///< 91
void formerlist();    ///< former files, former results and libraries as one page
void methodinput();   ///< 15: method or input
void helpcommand();   ///< 21: the help program, or the help pages of the tabbed view
void additionalinformation();
void notthere(); ///< tells that the command in hand has nothing behind it on this side yet

/// Opens an option page, and runs the cycle where a setting was changed.
void pagecommand(OptionPage page);
template <OptionPage Page>
void opens() {
    pagecommand(Page);
}
