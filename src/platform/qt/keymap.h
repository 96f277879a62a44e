#pragma once

class QKeyEvent;

/// Virtual-key code of a key of the keyboard, as keydispatch takes it; 0 for a key that the program has no
/// use for.
int virtualkey(int key);

/// True for the keys of a secondary press: the menu key, Shift+F10.
bool secondarykey(const QKeyEvent& event);

/// Hands a key to the program. False when it has no use for it, and for a key held with Ctrl, Alt or Meta.
bool dispatchkey(const QKeyEvent& event);
