#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "shell/prompttext.h"
#include "shell/words.h"

/// Text between the core, which speaks UTF-8, and the windows. A byte that is no UTF-8 becomes a replacement
/// character.
inline QString qs(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string utf8(const QString& text) {
    const QByteArray bytes = text.toUtf8();
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

/// A sentence of word slots and literals in the language in force, ready to show.
template <class... Parts>
QString phrase(const Parts&... parts) {
    std::string text;
    extend(text, parts...);
    wordclean(text);
    return qs(text);
}
