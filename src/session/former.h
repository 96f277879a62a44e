#pragma once

#include <cstddef>
#include <functional>
#include <string>

/// Former results: what was active before, to go back to. Each is a file on the list XFILEFORMER, the newest
/// last: the data file of the user where it holds the results, else a temporary file.

std::size_t formercount();
/// Former results that no file of the user holds; they end with the session.
std::size_t formerunsaved();

std::string formercaption(); ///< "Former Results (-1 ... -3)"; empty when there are none
std::string formerhint();    ///< what a press on their icon does

/// Puts the active results on the list, before new data replace them. Where the list is full the user
/// is asked which one goes. False: on a cancel, or, told, when the results could not be kept; nothing has
/// changed. An empty session, and results that stand on the list as they
/// are, are not kept again.
bool formerkeep();

/// Keeps the active results, and lets other data take their place: `replace` says whether they did. Where
/// they did not the list is as it was. False as `replace`, or as formerkeep.
bool formerfor(const std::function<bool()>& replace);

/// Makes result k (from 1) the active one; it stays on the list, and the results that were active are kept
/// there, too. False, and told, when its file cannot be read, or there was no place: the session then is as
/// it was.
bool formeractivate(std::size_t k);
/// Puts the sets of result k behind the active ones; the options stay. False as before.
bool formermerge(std::size_t k);
/// Takes result k off the list, and its file away where that is a temporary one.
void formerdelete(std::size_t k);

void formerpress(); ///< primary press: choose a result, and what to do with it
void formerother(); ///< secondary press: asks whether the result chosen last is to be deleted

/// Before the program ends: asks about results that would be lost. False when it is to go on.
bool formerexit();
