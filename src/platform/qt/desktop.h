#pragma once

#include <QApplication>
#include <functional>

/// Runs a step of the desktop. One that fails by an exception is told, and counts as done: the session goes
/// on, with the data in it.
bool guarded(const std::function<bool()>& step);

/// The application, whose events are such steps.
class Desktop : public QApplication {
public:
    using QApplication::QApplication;
    bool notify(QObject* receiver, QEvent* event) override;
};
