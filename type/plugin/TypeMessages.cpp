#include "plugin/TypeMessages.h"

#include <OpenZyvo/ZStringResource.h>
namespace type::messages {

namespace {

const ZStringResourceId* const kRegistered[] = {
    &kTypeName,
    &kTypeManipName,
    &kTypeParseError,
    &kTypeMissingFlagsError,
    &kGroupIDArgsError,
    &kShaderGroupArgsError,
    &kMeshArgsError,
    &kInvalidTriError,
    &kNoSVGFound,
    &kFileLoadError,
    &kSVGParseError,
    &kSVGNbPointsError,
    &kSVGEvenodd,
    &kSVGImages,
    &kSVGStrokes,
    &kSVGOpacity,
    &kSVGVisibility,
    &kSVGSmall,
    &kSVGOverlapholes,
    &kTypeManipHelp,
    &kTypeManipConnectError,
    &kDistanceField,
    &kNormals,
    &kTypeExtrudeNoMesh,
    &kTypeSVGNoValidInput,
    &kSVGMultipleIssues,
};

} // namespace

ZString text(const ZStringResourceId& id, const ZString& arg1, const ZString& arg2) {
    ZStatus status;
    const ZString format = ZStringResource::getString(id, status);
    ZString result;
    result.format(format, arg1, arg2);
    return result;
}

std::span<const ZStringResourceId* const> registeredMessages() {
    return kRegistered;
}

ZStatus typeToolInitStrings() {
    for (const ZStringResourceId* id : kRegistered) {
        const ZStatus status = ZStringResource::registerString(*id);
        if (!status)
            return status;
    }
    return ZStatus::kSuccess;
}

} // namespace type::messages
