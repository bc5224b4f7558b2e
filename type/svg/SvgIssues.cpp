#include "svg/SvgIssues.h"

#include "plugin/TypeMessages.h"

#include <OpenZyvo/ZGlobal.h>
#include <utility>

namespace type {

std::vector<const ZStringResourceId*> issueWarnings(const SvgIssues& issues) {
    const std::pair<bool, const ZStringResourceId*> inOrder[] = {
        {issues.hasEvenOdd, &messages::kSVGEvenodd}, {issues.hasStrokes, &messages::kSVGStrokes},
        {issues.hasImages, &messages::kSVGImages},   {issues.hasHidden, &messages::kSVGVisibility},
        {issues.hasOpacity, &messages::kSVGOpacity}, {issues.isSmall, &messages::kSVGSmall},
    };
    std::vector<const ZStringResourceId*> warnings;
    for (const auto& [raised, message] : inOrder) {
        if (raised)
            warnings.push_back(message);
    }
    if (warnings.size() > 1)
        warnings.push_back(&messages::kSVGMultipleIssues);
    return warnings;
}

void reportIssues(const SvgIssues& issues) {
    for (const ZStringResourceId* warning : issueWarnings(issues))
        ZGlobal::displayWarning(messages::text(*warning));
}

} // namespace type
