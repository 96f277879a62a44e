// The page on which the four comments are edited.

#include <algorithm>
#include <array>

#include "data/textpieces.h"
#include "session/library.h"
#include "session/session.h"
#include "shell/prompts.h"

namespace {

constexpr int okItem = commentSlots + 1;

/// A comment while it is edited: its list as read, and what the user made of the first entry.
struct Comment {
    std::vector<std::string> entries;
    std::string text;
    bool readable = true;
    bool changed = false;
};
using Comments = std::array<Comment, commentSlots>;

Comments readcomments() {
    Comments comments;
    for (int i = 0; i < commentSlots; ++i) {
        auto entries = libraryread(firstCommentSlot + i);
        comments[i].readable = entries.has_value();
        if (entries) comments[i].entries = std::move(*entries);
        if (!comments[i].entries.empty()) comments[i].text = comments[i].entries.front();
    }
    return comments;
}

/// Shows the page; the number of the item, 0 on cancel.
int showpage(const Comments& comments) {
    menuclear();
    for (int i = 0; i < commentSlots; ++i)
        compose(session.menuItem[i + 1], i + 1, "...", Word::Comment, " ", i + 1, " [",
                AsTyped{comments[i].text}, "]");
    compose(session.menuItem[okItem], "A...", Word::OK);
    compose(session.menuItem[okItem + 1], "X...", Word::Exit);
    session.menuCount = okItem + 1;
    session.menuChoice = okItem + 1; // who only accepts what is offered leaves
    compose(session.menuTitle, Word::Edit, " ", Word::Title, " ", Word::Comment, " ", Word::Library);
    compose(session.msg, Word::Change, " ", Word::For, " ", Word::Select);
    menushowgo();
    return static_cast<int>(session.menuChoice);
}

/// One line, whatever was pasted: a line end within it would be two entries of the list.
std::string asline(std::string text) {
    for (char& c : text)
        if (static_cast<unsigned char>(c) < ' ') c = ' ';
    return std::string(trimmed(text));
}

/// Asks for a comment; its list stands in the entry to choose from. True when it is another one now.
bool askcomment(Comment& comment, int number) {
    const Keep keep{session.recentTexts};
    session.recentTexts = comment.entries;
    compose(session.menuTitle, Word::Edit, " ", Word::Comment, " ", number);
    compose(session.msg, Word::Comment, " ", number, ": ", AsTyped{comment.text});
    textprompt();
    if (session.msg == noAnswerText) return false;
    const std::string text = asline(session.msg);
    if (text == comment.text) return false;
    comment.text = text;
    return comment.changed = true;
}

/// The list with the text in front, once; an emptied comment takes the former first entry off.
std::vector<std::string> changedlist(const Comment& comment) {
    std::vector<std::string> entries = comment.entries;
    if (comment.text.empty()) {
        if (!entries.empty()) entries.erase(entries.begin());
        return entries;
    }
    std::erase(entries, comment.text);
    entries.insert(entries.begin(), comment.text);
    return entries;
}

/// Writes the lists that were changed. False, and told, at the first that cannot be: the page stays open, so
/// that nothing typed is lost.
bool savecomments(Comments& comments) {
    for (int i = 0; i < commentSlots; ++i) {
        Comment& comment = comments[i];
        if (!comment.changed) continue;
        std::vector<std::string> entries = changedlist(comment);
        if (!comment.readable || !librarywrite(firstCommentSlot + i, entries)) {
            libraryfile(firstCommentSlot + i);
            const std::string name = session.msg;
            compose(session.msg, Word::Cannot, " ", Word::Save, " ", Word::File, ": ", AsTyped{name});
            tellok();
            return false;
        }
        comment.entries = std::move(entries);
        comment.changed = false;
    }
    return true;
}

} // namespace

void commentedit() {
    // A script run answers every page by its first item: there is nothing to edit, and no end.
    if (!session.scriptRequest.empty()) return;
    const Keep keep{session.msg, session.menuTitle};
    Comments comments = readcomments();
    int last = -1;
    for (;;) {
        const int item = showpage(comments);
        if (item >= 1 && item <= commentSlots) {
            if (askcomment(comments[item - 1], item)) last = item - 1;
        } else if (item != okItem) {
            return;
        } else if (savecomments(comments)) {
            if (last >= 0) session.libraryItem = session.analysisComment = comments[last].text;
            return;
        }
    }
}
