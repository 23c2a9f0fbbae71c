#pragma once

#include <QtCore/QString>

#include <optional>

namespace OrrinQuiver {

class QuiverPrivate;

// The navigation commands that a focused item's keys send to the bar: a
// command word and a direction, "+" forward (down) or "-" backward (up).
struct KeyCommand
{
    enum Word {
        Header, // Ctrl+Page Up/Down: open the previous or next header
        MoveHeader, // Ctrl+Home/End: open the first or last header
        Scroll, // Page Up/Down: one step of the arrows
        Move // Home/End: steps until the arrow goes, then the first or last item
    };
    Word word = Scroll;
    bool forward = true;
};

// Reads a command text: the word ("HEADER", "MOVEHEADER", "SCROLL", "MOVE",
// in any case) with its sign at either end ("SCROLL+" as the item view
// writes it, "+SCROLL" as well). Nothing for any other text, a missing sign
// or a sign at both ends.
std::optional<KeyCommand> parseKeyCommand(const QString &text);

// Carries out `command` on the control: opens a header through the
// selection, or scrolls the open view by the steps its arrows allow (only
// while the arrow of that direction is shown) and, for Move, then makes the
// first or last item the selected one.
void runKeyCommand(QuiverPrivate &d, const KeyCommand &command);

} // namespace OrrinQuiver
