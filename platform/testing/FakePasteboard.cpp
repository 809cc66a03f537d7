#include "platform/testing/FakePasteboard.h"

#include <algorithm>
#include <utility>

namespace vantro::doubles {

bool FakePasteboard::wasFetchedBy(Selection selection, WindowID window) const
{
    return std::ranges::any_of(of(selection).fetchedBy, [&](WindowID by) { return isSameProgram(by, window); });
}

void FakePasteboard::setByOther(Selection selection, std::optional<QString> text, bool secret)
{
    of(selection) = {std::move(text), {}, false, of(selection).changes, secret};
}

std::optional<QString> FakePasteboard::fetch(Selection selection, WindowID window)
{
    if (of(selection).own)
        of(selection).fetchedBy.push_back(window);
    return of(selection).text;
}

} // namespace vantro::doubles
