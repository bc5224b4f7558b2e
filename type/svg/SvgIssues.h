#pragma once

#include <OpenZyvo/ZStringResourceId.h>
#include <vector>

namespace type {

// What the artwork asks for that the reader understands but cannot honour.
// Hidden shapes are dropped without raising `hasHidden`; the report still
// looks at it, so a reader that sets it is heard.
struct SvgIssues {
    bool hasImages = false;
    bool hasStrokes = false;
    bool hasOpacity = false;
    bool hasHidden = false;
    bool hasEvenOdd = false;
    bool isSmall = false;
};

// The warnings the issues raise, in the order they are shown, followed by the
// summary warning when there is more than one.
std::vector<const ZStringResourceId*> issueWarnings(const SvgIssues& issues);

// Shows those warnings with the host's warning display.
void reportIssues(const SvgIssues& issues);

} // namespace type
