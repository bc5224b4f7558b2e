#include "builtins/PlugValues.h"

#include "data/Data.h"
#include "data/NumericData.h"
#include "graph/PlugRef.h"
#include "scene/AttributeTypeNames.h"
#include "scene/CommandMessages.h"
#include "scene/DataText.h"
#include "scene/UnitConversion.h"
#include "scene/ValueList.h"

#include <OpenZyvo/ZDGModifier.h>
#include <OpenZyvo/ZPlug.h>
#include <cmath>

namespace oz::builtins {

using namespace scene;

namespace {

std::string plugName(const ZPlug& plug) {
    return quoted(plug.name().asStdString());
}

bool isNumberLeaf(const Attribute& a) {
    return a.isNumberLike() && a.children.empty() && !a.flags.array;
}

// The attributes whose numbers a plug of `a` takes, in order: itself, or
// the children of a compound of plain numbers. Empty when it takes no list
// of numbers.
std::vector<const Attribute*> numberLeaves(const Attribute& a) {
    if (a.children.empty())
        return a.isNumberLike() ? std::vector<const Attribute*>{&a} : std::vector<const Attribute*>{};
    std::vector<const Attribute*> leaves;
    for (const auto& child : a.children) {
        if (!isNumberLeaf(*child))
            return {};
        leaves.push_back(child.get());
    }
    return leaves;
}

cmd::Value shownNumber(const Attribute& a, double stored) {
    if (a.kind == Attribute::Kind::Numeric && a.numericType == ZFnNumericData::kBoolean)
        return cmd::Value(stored != 0.0);
    if (a.isIntegral())
        return cmd::Value(static_cast<int>(stored));
    return cmd::Value(toUiUnits(a, stored));
}

std::string fieldList(const Attribute& a) {
    std::string text;
    for (const auto& [name, value] : a.fields)
        text += (text.empty() ? "" : ", ") + name.asStdString() + "=" + std::to_string(value);
    return text;
}

// The stored number for one leaf from one given value.
bool leafNumber(const ZPlug& plug, const Attribute& a, const cmd::Value& given, double& stored,
                std::string& error) {
    const auto* text = std::get_if<std::string>(&given);
    double number = 0.0;
    if (text && a.kind == Attribute::Kind::Enum) {
        for (const auto& [name, value] : a.fields)
            if (name.asStdString() == *text) {
                stored = value;
                return true;
            }
        error = plugName(plug) + " has no field \"" + *text + "\" (fields: " + fieldList(a) + ")";
        return false;
    }
    if (text && a.kind == Attribute::Kind::Numeric && a.numericType == ZFnNumericData::kBoolean) {
        if (const auto flag = cmd::toBool(given)) {
            stored = *flag ? 1.0 : 0.0;
            return true;
        }
    }
    if (!numberOf(given, number)) {
        error = plugName(plug) + " takes numbers, found " + (text ? "\"" + *text + "\"" : cmd::toText(given));
        return false;
    }
    if (a.kind == Attribute::Kind::Enum) {
        const double rounded = std::round(number);
        if (rounded != number || rounded < -32768.0 || rounded > 32767.0 ||
            !a.hasField(static_cast<short>(rounded))) {
            error =
                plugName(plug) + " has no field " + cmd::toText(given) + " (fields: " + fieldList(a) + ")";
            return false;
        }
    }
    stored = fromUiUnits(a, number);
    return true;
}

bool queueData(ZDGModifier& modifier, const ZPlug& plug, const Attribute& leaf, const std::string& typeName,
               std::span<const cmd::Value> values, std::string& error) {
    const auto type = dataTypeNamed(typeName);
    if (!type) {
        error = "unknown data type \"" + typeName + "\"";
        return false;
    }
    if (leaf.kind != Attribute::Kind::Typed) {
        error = plugName(plug) + " is of type " + attributeTypeName(leaf) +
                ", not a data attribute; leave out -type";
        return false;
    }
    if (leaf.dataType != ZFnData::kAny && leaf.dataType != *type) {
        error = plugName(plug) + " holds " + dataTypeName(leaf.dataType) + " data, not " + typeName;
        return false;
    }
    std::shared_ptr<Data> data = parseData(*type, values, error);
    if (!data) {
        error = plugName(plug) + ": " + error;
        return false;
    }
    return static_cast<bool>(modifier.newPlugValue(plug, ObjectAccess::wrap(data)));
}

bool queueNumbers(ZDGModifier& modifier, const ZPlug& plug, const Attribute& leaf,
                  const std::vector<const Attribute*>& leaves, std::span<const cmd::Value> values,
                  std::string& error) {
    const ValueList list(values);
    const std::vector<cmd::Value>& flat = list.items();
    if (flat.size() != leaves.size()) {
        error = plugName(plug) + " takes " + std::to_string(leaves.size()) + " value" +
                (leaves.size() == 1 ? "" : "s") + ", found " + std::to_string(flat.size());
        return false;
    }
    std::vector<double> stored(leaves.size());
    for (std::size_t i = 0; i < leaves.size(); ++i)
        if (!leafNumber(plug, *leaves[i], flat[i], stored[i], error))
            return false;
    if (!leaf.children.empty()) {
        for (std::size_t i = 0; i < leaves.size(); ++i)
            if (!modifier.newPlugValueDouble(plug.child(static_cast<unsigned int>(i)), stored[i]))
                return false;
        return true;
    }
    if (leaves.size() == 1)
        return static_cast<bool>(modifier.newPlugValueDouble(plug, stored[0]));
    auto tuple = std::make_shared<NumericData>(leaf.numericType);
    for (std::size_t i = 0; i < stored.size(); ++i)
        tuple->values[i] = stored[i];
    return static_cast<bool>(modifier.newPlugValue(plug, ObjectAccess::wrap(tuple)));
}

} // namespace

bool readPlugValue(const ZPlug& plug, cmd::Value& value, std::string& error) {
    const PlugRef* ref = PlugAccess::get(plug);
    const Attribute& leaf = *ref->leaf();
    ZStatus status;
    if (!isFullySpecified(ref->path)) {
        error = plugName(plug) + " lies under an array; name the element it belongs to";
        return false;
    }
    if (isArrayPath(ref->path)) {
        if (!leaf.children.empty() || leaf.componentCount() != 1) {
            error = plugName(plug) + " is an array; name one of its elements";
            return false;
        }
        const unsigned int count = plug.evaluateNumElements(&status);
        std::vector<double> doubles;
        std::vector<int> ints;
        for (unsigned int i = 0; status && i < count; ++i) {
            const double stored = plug.elementByPhysicalIndex(i).asDouble(&status);
            doubles.push_back(toUiUnits(leaf, stored));
            ints.push_back(static_cast<int>(stored));
        }
        value = leaf.isIntegral() ? cmd::Value(std::move(ints)) : cmd::Value(std::move(doubles));
    } else if (leaf.kind == Attribute::Kind::Message) {
        error = plugName(plug) + " is a message attribute and holds no value";
        return false;
    } else if (leaf.kind == Attribute::Kind::Typed) {
        const ZObject object = plug.asZObject(&status);
        const auto* data = ObjectAccess::as<Data>(object);
        if (status && !data) {
            if (leaf.dataType == ZFnData::kString || leaf.dataType == ZFnData::kAny)
                value = std::string();
            else if (leaf.dataType == ZFnData::kStringArray)
                value = std::vector<std::string>();
            else if (leaf.dataType == ZFnData::kIntArray)
                value = std::vector<int>();
            else
                value = std::vector<double>();
        } else if (status) {
            auto shown = dataValue(*data);
            if (!shown) {
                error = plugName(plug) + " holds " + dataTypeName(data->dataType()) +
                        " data, which getAttr cannot show";
                return false;
            }
            value = std::move(*shown);
        }
    } else {
        const std::vector<const Attribute*> leaves = numberLeaves(leaf);
        if (leaves.empty()) {
            error = plugName(plug) + " is a compound; name one of its children";
            return false;
        }
        if (leaves.size() == 1 && leaf.children.empty()) {
            value = shownNumber(leaf, plug.asDouble(&status));
        } else if (!leaf.children.empty()) {
            std::vector<double> numbers;
            for (std::size_t i = 0; status && i < leaves.size(); ++i)
                numbers.push_back(
                    toUiUnits(*leaves[i], plug.child(static_cast<unsigned int>(i)).asDouble(&status)));
            value = std::move(numbers);
        } else {
            const ZObject object = plug.asZObject(&status);
            const auto* tuple = ObjectAccess::as<NumericData>(object);
            std::vector<double> numbers;
            for (std::size_t i = 0; tuple && i < leaves.size(); ++i)
                numbers.push_back(toUiUnits(leaf, tuple->values[i]));
            value = std::move(numbers);
        }
    }
    if (!status) {
        error = plugName(plug) + " could not be evaluated (" + status.errorString().asStdString() + ")";
        return false;
    }
    return true;
}

bool queuePlugValue(ZDGModifier& modifier, const ZPlug& plug, const std::string& dataType,
                    std::span<const cmd::Value> values, std::string& error) {
    const PlugRef* ref = PlugAccess::get(plug);
    const Attribute& leaf = *ref->leaf();
    if (isArrayPath(ref->path)) {
        error = plugName(plug) + " is an array; set its elements one by one (" + plug.name().asStdString() +
                "[0]...)";
        return false;
    }
    if (!isFullySpecified(ref->path)) {
        error = plugName(plug) + " lies under an array; name the element it belongs to";
        return false;
    }
    if (leaf.kind == Attribute::Kind::Message) {
        error = plugName(plug) + " is a message attribute and holds no value";
        return false;
    }
    if (!leaf.flags.writable) {
        error = plugName(plug) + " is not writable";
        return false;
    }
    if (!dataType.empty())
        return queueData(modifier, plug, leaf, dataType, values, error);
    if (leaf.kind == Attribute::Kind::Typed) {
        const bool text = values.size() == 1 && std::holds_alternative<std::string>(values.front());
        if (text && (leaf.dataType == ZFnData::kString || leaf.dataType == ZFnData::kAny))
            return queueData(modifier, plug, leaf, "string", values, error);
        error = plugName(plug) + " holds " + dataTypeName(leaf.dataType) + " data; give -type \"" +
                dataTypeName(leaf.dataType) + "\"";
        return false;
    }
    const std::vector<const Attribute*> leaves = numberLeaves(leaf);
    if (leaves.empty()) {
        error = plugName(plug) + " is a compound; set its children one by one";
        return false;
    }
    if (values.empty()) {
        error = "no value given for " + plugName(plug);
        return false;
    }
    return queueNumbers(modifier, plug, leaf, leaves, values, error);
}

} // namespace oz::builtins
