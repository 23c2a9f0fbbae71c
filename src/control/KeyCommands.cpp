#include "control/KeyCommands.h"

#include "control/Quiver_p.h"
#include "control/ScrollArrows.h"
#include "itemview/ItemContainer.h"
#include "model/Header.h"
#include "model/Headers.h"
#include "model/Items.h"

#include <limits>

namespace OrrinQuiver {

std::optional<KeyCommand> parseKeyCommand(const QString &text)
{
    if (text.size() < 2)
        return std::nullopt;
    const auto signOf = [](QChar c) -> std::optional<bool> {
        if (c == u'+')
            return true;
        if (c == u'-')
            return false;
        return std::nullopt;
    };
    std::optional<bool> forward = signOf(text.front());
    QString word = text.mid(1);
    if (!forward) {
        forward = signOf(text.back());
        word = text.chopped(1);
    }
    if (!forward)
        return std::nullopt;
    word = word.toUpper();
    static const struct {
        const char *name;
        KeyCommand::Word word;
    } Words[] = { { "HEADER", KeyCommand::Header },
                  { "MOVEHEADER", KeyCommand::MoveHeader },
                  { "SCROLL", KeyCommand::Scroll },
                  { "MOVE", KeyCommand::Move } };
    for (const auto &known : Words) {
        if (word == QLatin1String(known.name))
            return KeyCommand { known.word, *forward };
    }
    return std::nullopt;
}

void runKeyCommand(QuiverPrivate &d, const KeyCommand &command)
{
    const int open = d.selection->position();
    const int count = d.headers->Count();
    const int arrow = command.forward ? ArrowTowardsLast : ArrowTowardsFirst;
    switch (command.word) {
    case KeyCommand::Header:
        if (command.forward && open < count)
            d.selectHeader(open + 1);
        else if (!command.forward && open > 1)
            d.selectHeader(open - 1);
        return;
    case KeyCommand::MoveHeader: {
        const int end = command.forward ? count : 1;
        if (open != end)
            d.selectHeader(end);
        return;
    }
    case KeyCommand::Scroll:
    case KeyCommand::Move:
        break;
    }
    // The arrows speak for the open view once the bars are in place.
    d.strip->finishSlide();
    Header *header = d.selection->openHeader();
    ItemContainer *view = d.openView();
    if (!header || !view)
        return;
    // So does a step still sliding once it has landed.
    view->finishSlide();
    if (command.word == KeyCommand::Scroll) {
        if (d.arrows->isShown(arrow))
            view->Scroll(arrow, d.settings.smoothScroll);
        return;
    }
    // Every step lands at once: the steps in between are not worth watching.
    while (d.arrows->isShown(arrow)) {
        const int top = view->firstVisiblePosition();
        view->Scroll(arrow, false);
        // A step that moves nothing would be repeated for ever.
        if (view->firstVisiblePosition() == top)
            break;
    }
    const int target = command.forward ? header->Items()->Count() : 1;
    // The current item is a 16-bit position; an item beyond its reach stays
    // where the steps have brought the view.
    if (target >= 1 && target <= std::numeric_limits<qint16>::max())
        d.selectItem(qint16(target));
}

} // namespace OrrinQuiver
