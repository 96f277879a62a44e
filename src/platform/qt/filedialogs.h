#pragma once

#include <QString>
#include <QStringList>

#include "platform/platform.h"

class QWidget;

/// "Data|*.w;*.v|All|*.*" as the filters of a file dialog: "Data (*.w *.v)", "All (*)".
QStringList filefilters(std::string_view filter);

/// Extension, without its dot, that a filter stands for; empty when it fits every name.
QString extensionof(const QString& filter);

std::optional<std::string> askopenfile(const FilePage& page, QWidget* over);
std::optional<std::string> asksavefile(const FilePage& page, QWidget* over);
