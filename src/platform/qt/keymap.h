#pragma once

class QKeyEvent;

/// Virtual-key code of a key of the keyboard, as keydispatch takes it; 0 for a key that the program has no
/// use for.
int virtualkey(int key);

/// Hands a key to the program. False when it has no use for it.
bool dispatchkey(const QKeyEvent& event);
