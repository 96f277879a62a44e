#pragma once

#include <QScrollArea>
#include <QTextBrowser>

#include "shell/helppages.h"

/// A page of advice laid out; its text can be selected.
QTextBrowser* helpbrowser(const HelpPage& page);

/// A widget in an area that scrolls where it is larger.
QScrollArea* scrolled(QWidget* inner);
