#include "builtins/ArrayData.h"
#include "builtins/PlugValues.h"
#include "builtins/ResultValue.h"
#include "commands/BuiltinCommand.h"
#include "commands/ParsedCommand.h"
#include "data/Data.h"
#include "graph/PlugRef.h"
#include "scene/AttributeTypeNames.h"
#include "scene/CommandMessages.h"
#include "scene/SceneLookup.h"

#include <OpenZyvo/ZArgDatabase.h>
#include <OpenZyvo/ZDGContext.h>
#include <OpenZyvo/ZDGContextGuard.h>
#include <OpenZyvo/ZStringArray.h>
#include <optional>

namespace oz::builtins {

using namespace scene;
namespace {

constexpr const char* kName = "getAttr";

// The elements of a multi attribute, the items of array data, 1 for any
// other plug.
std::optional<int> sizeOf(const ZPlug& plug, std::string& error) {
    const PlugRef& ref = *PlugAccess::get(plug);
    if (isArrayPath(ref.path))
        return static_cast<int>(plug.evaluateNumElements());
    if (!holdsArrayData(*ref.leaf()))
        return 1;
    ZStatus status;
    const ZObject object = plug.asZObject(&status);
    if (!status) {
        error = quoted(plug.name().asStdString()) + " could not be evaluated";
        return std::nullopt;
    }
    const auto* data = ObjectAccess::as<Data>(object);
    return data ? static_cast<int>(arrayDataLength(*data).value_or(1)) : 0;
}

// getAttr [-type] [-size] [-time t] <node.attribute>: the plug's value
// (evaluated, at time t when given), its type name with -type, or with
// -size the number of elements of a multi attribute or of items of array
// data (1 for other plugs).
class GetAttrCommand : public cmd::ParsedCommand {
public:
    static ZSyntax newSyntax() {
        ZSyntax syntax;
        syntax.addFlag("-typ", "-type");
        syntax.addFlag("-s", "-size");
        syntax.addFlag("-t", "-time", ZSyntax::kTime);
        syntax.setObjectType(ZSyntax::kStringObjects, 1, 1);
        return syntax;
    }

    ZStatus run(const ZArgDatabase& database, const ZStringArray& objects) override {
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
            const std::optional<int> size = sizeOf(plug, error);
            if (!size) {
                reportError(kName, error);
                return ZStatus::kFailure;
            }
            setResultValue(*size);
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
} // namespace oz::builtins
