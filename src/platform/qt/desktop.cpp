#include "shell/words.h" // ahead of Qt, which has a global Display

#include "platform/qt/desktop.h"

#include <exception>
#include <new>

#include "session/session.h"
#include "shell/prompts.h"

bool guarded(const std::function<bool()>& step) {
    try {
        return step();
    } catch (const std::bad_alloc&) {
        compose(session.msg, Word::Not, " ", Word::Enough, " ", Word::Free, " ", Word::Memory);
    } catch (const std::exception& fault) {
        compose(session.msg, Word::Error, ": ", AsTyped{fault.what()});
    }
    tellok();
    return true;
}

bool Desktop::notify(QObject* receiver, QEvent* event) {
    return guarded([&] { return QApplication::notify(receiver, event); });
}
