#include "commands/BuiltinCommand.h"
#include "graph/PlugRef.h"
#include "scene/AttributeTypeNames.h"
#include "scene/CommandMessages.h"
#include "scene/PlugValues.h"
#include "scene/ResultValue.h"
#include "scene/SceneLookup.h"

#include <OpenZyvo/ZArgDatabase.h>
#include <OpenZyvo/ZDGContext.h>
#include <OpenZyvo/ZDGContextGuard.h>
#include <OpenZyvo/ZStringArray.h>
#include <optional>

namespace oz::scene {
namespace {

constexpr const char* kName = "getAttr";

// getAttr [-type] [-size] [-time t] <node.attribute>: the plug's value
// (evaluated, at time t when given), its type name with -type, or the
// number of elements of an array with -size.
class GetAttrCommand : public ZPxCommand {
public:
    static ZSyntax newSyntax() {
        ZSyntax syntax;
        syntax.addFlag("-typ", "-type");
        syntax.addFlag("-s", "-size");
        syntax.addFlag("-t", "-time", ZSyntax::kTime);
        syntax.setObjectType(ZSyntax::kStringObjects, 1, 1);
        return syntax;
    }

    ZStatus doIt(const ZArgList& args) override {
        ZStatus status;
        const ZArgDatabase database(syntax(), args, &status);
        if (!status)
            return status;
        ZStringArray objects;
        database.getObjects(objects);
        ZPlug plug;
        std::string error;
        if (!findPlug(objects[0].view(), plug, error)) {
            reportError(kName, error);
            return ZStatus::kNotFound;
        }
        const PlugRef& ref = *PlugAccess::get(plug);
        if (database.isFlagSet("-type")) {
            setResultValue(attributeTypeName(*ref.leaf()));
            return ZStatus::kSuccess;
        }
        if (database.isFlagSet("-size")) {
            if (!isArrayPath(ref.path)) {
                reportError(kName, quoted(objects[0].asStdString()) + " is not an array");
                return ZStatus::kInvalidParameter;
            }
            setResultValue(static_cast<int>(plug.evaluateNumElements()));
            return ZStatus::kSuccess;
        }
        std::optional<ZDGContextGuard> atTime;
        if (database.isFlagSet("-time"))
            atTime.emplace(ZDGContext(ZTime(database.flagArgumentDouble("-time", 0))));
        cmd::Value value;
        if (!readPlugValue(plug, value, error)) {
            reportError(kName, error);
            return ZStatus::kFailure;
        }
        setResultValue(std::move(value));
        return ZStatus::kSuccess;
    }
};

const cmd::BuiltinCommand registration(
    kName, [] { return std::make_unique<GetAttrCommand>(); }, GetAttrCommand::newSyntax);

} // namespace
} // namespace oz::scene
