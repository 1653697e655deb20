#pragma once

#include <QString>

class QInputMethodEvent;
class QKeyEvent;

// What typing does to a text, at whose end it always takes place.

/// What a key adds: its character, or a line break for Return and Enter. Empty for one that types nothing.
QString typedText(const QKeyEvent& key);
/// The text without control characters; line breaks stay.
QString withoutControls(QString text);
/// Removes the last character as a reader counts them: with its accents, and both halves of a surrogate pair.
void removeLastCharacter(QString& text);
/// Adds what an input method has composed, in place of what it says that replaces. True when the text has changed.
bool addComposed(QString& text, const QInputMethodEvent& event);
