#include "scene/AttributeDeclaration.h"

#include "graph/Attribute.h"
#include "graph/Names.h"
#include "graph/ValueIO.h"
#include "scene/AttributeTypeNames.h"
#include "scene/SceneText.h"
#include "scene/UnitConversion.h"

#include <OpenZyvo/ZFnCompoundAttribute.h>
#include <OpenZyvo/ZFnEnumAttribute.h>
#include <OpenZyvo/ZFnMessageAttribute.h>
#include <OpenZyvo/ZFnNumericAttribute.h>
#include <OpenZyvo/ZFnTypedAttribute.h>
#include <OpenZyvo/ZFnUnitAttribute.h>
#include <charconv>

namespace oz::scene {

namespace {

bool isTuple(ZFnNumericData::Type type) {
    return ZFnNumericData::componentCount(type) > 1;
}

// "A:B=4:C" as (name, value) pairs; values count on from the one before.
bool parseEnumNames(const std::string& text, std::vector<std::pair<std::string, short>>& fields,
                    std::string& error) {
    int next = 0;
    std::size_t at = 0;
    while (at <= text.size()) {
        const std::size_t colon = std::min(text.find(':', at), text.size());
        std::string field = text.substr(at, colon - at);
        at = colon + 1;
        if (const std::size_t equals = field.find('='); equals != std::string::npos) {
            const std::string digits = field.substr(equals + 1);
            int value = 0;
            const auto [end, ec] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
            if (ec != std::errc() || end != digits.data() + digits.size() || value < -32768 ||
                value > 32767) {
                error = "the enum field \"" + field + "\" has no valid value after '='";
                return false;
            }
            next = value;
            field.resize(equals);
        }
        if (field.empty()) {
            error = "an enum field has no name in \"" + text + "\"";
            return false;
        }
        if (next > 32767) {
            error = "too many enum fields in \"" + text + "\"";
            return false;
        }
        fields.emplace_back(field, static_cast<short>(next++));
    }
    return true;
}

void setRange(Attribute::Range& range, const Attribute& a, std::optional<double> value) {
    if (!value)
        return;
    range.set = true;
    range.value.fill(normaliseNumber(a, fromUiUnits(a, *value)));
}

bool makeLeaf(const AttributeDeclaration& declaration, const std::vector<ZObject>& children, ZObject& made,
              std::string& error) {
    const ZString longName(declaration.longName), shortName(declaration.shortName);
    ZStatus status;
    if (!declaration.dataType.empty()) {
        const auto type = dataTypeNamed(declaration.dataType);
        if (!type) {
            error = "unknown data type \"" + declaration.dataType + "\"";
            return false;
        }
        made = ZFnTypedAttribute().create(longName, shortName, *type, ZObject::kNullObj, &status);
    } else if (declaration.attributeType == "message") {
        made = ZFnMessageAttribute().create(longName, shortName, &status);
    } else if (declaration.attributeType == "compound") {
        ZFnCompoundAttribute fn;
        made = fn.create(longName, shortName, &status);
        for (const ZObject& child : children)
            if (status)
                status = fn.addChild(child);
    } else if (declaration.attributeType == "enum") {
        std::vector<std::pair<std::string, short>> fields;
        if (declaration.enumNames.empty()) {
            error = "an enum needs its fields (-enumName \"A:B:C\")";
            return false;
        }
        if (!parseEnumNames(declaration.enumNames, fields, error))
            return false;
        ZFnEnumAttribute fn;
        made = fn.create(longName, shortName, fields.front().second, &status);
        for (const auto& [name, value] : fields)
            if (status && !(status = fn.addField(ZString(name), value)))
                error = "the enum field \"" + name + "\" or its value is given twice";
    } else if (const auto unit = unitTypeNamed(declaration.attributeType)) {
        made = ZFnUnitAttribute().create(longName, shortName, *unit, 0.0, &status);
    } else if (const auto numeric = numericTypeNamed(declaration.attributeType)) {
        const int width = static_cast<int>(ZFnNumericData::componentCount(*numeric));
        if (declaration.childCount && *declaration.childCount != 0 &&
            (*declaration.childCount != width || width > 3)) {
            error = "a " + declaration.attributeType + " has " + (width > 3 ? "no" : std::to_string(width)) +
                    " children (or none with -numberOfChildren 0)";
            return false;
        }
        if (!children.empty())
            made =
                ZFnNumericAttribute().create(longName, shortName, children[0], children[1],
                                             children.size() > 2 ? children[2] : ZObject::kNullObj, &status);
        else
            made = ZFnNumericAttribute().create(longName, shortName, *numeric, 0.0, &status);
        if (!status && !children.empty())
            error = "the children of a " + declaration.attributeType + " must be plain numbers";
    } else {
        error = "unknown attribute type \"" + declaration.attributeType + "\"";
        return false;
    }
    if (!status) {
        if (error.empty())
            error = "the attribute could not be made (" + status.errorString().asStdString() + ")";
        return false;
    }
    return true;
}

} // namespace

int childrenNeeded(const AttributeDeclaration& declaration) {
    if (!declaration.dataType.empty())
        return 0;
    if (declaration.attributeType == "compound")
        return declaration.childCount.value_or(0);
    const auto numeric = numericTypeNamed(declaration.attributeType);
    if (!numeric || !isTuple(*numeric) || *numeric == ZFnNumericData::k4Double)
        return 0;
    return declaration.childCount.value_or(static_cast<int>(ZFnNumericData::componentCount(*numeric)));
}

bool buildAttribute(const AttributeDeclaration& declaration, const std::vector<ZObject>& children,
                    ZObject& attribute, std::string& error) {
    if (declaration.longName.empty()) {
        error = "the attribute needs a long name (-longName)";
        return false;
    }
    for (const std::string* name : {&declaration.longName, &declaration.shortName})
        if (!name->empty() && !isValidName(ZString(*name))) {
            error = "\"" + *name + "\" is not a valid attribute name";
            return false;
        }
    if (!declaration.attributeType.empty() && !declaration.dataType.empty()) {
        error = "give either -attributeType or -dataType, not both";
        return false;
    }
    if (declaration.attributeType == "compound" && declaration.childCount.value_or(0) < 1) {
        error = "a compound needs the number of its children (-numberOfChildren)";
        return false;
    }
    if (!makeLeaf(declaration, children, attribute, error))
        return false;
    Attribute& a = *attributeOf(attribute);
    if (declaration.defaultValue && a.isNumberLike() && a.children.empty()) {
        const double stored = normaliseNumber(a, fromUiUnits(a, *declaration.defaultValue));
        if (a.kind == Attribute::Kind::Enum && !a.hasField(static_cast<short>(stored))) {
            error = "the default value is none of the enum's fields";
            return false;
        }
        a.defaultValue.fill(stored);
    }
    setRange(a.min, a, declaration.minimum);
    setRange(a.max, a, declaration.maximum);
    setRange(a.softMin, a, declaration.softMinimum);
    setRange(a.softMax, a, declaration.softMaximum);
    a.flags.keyable = declaration.keyable;
    a.flags.array = declaration.multi;
    a.flags.hidden = declaration.hidden;
    a.flags.usedAsColor = declaration.usedAsColor;
    return true;
}

AttributeDeclaration describeAttribute(const Attribute& a) {
    AttributeDeclaration declaration;
    declaration.longName = a.longName.asStdString();
    if (a.shortName != a.longName)
        declaration.shortName = a.shortName.asStdString();
    if (a.kind == Attribute::Kind::Typed)
        declaration.dataType = dataTypeName(a.dataType);
    else
        declaration.attributeType = attributeTypeName(a);
    if (a.kind == Attribute::Kind::Compound)
        declaration.childCount = static_cast<int>(a.children.size());
    else if (a.kind == Attribute::Kind::Numeric && a.children.empty() && isTuple(a.numericType) &&
             a.numericType != ZFnNumericData::k4Double)
        declaration.childCount = 0;
    if (a.isNumberLike() && a.children.empty()) {
        if (a.defaultValue[0] != 0.0 || a.kind == Attribute::Kind::Enum)
            declaration.defaultValue = toUiUnits(a, a.defaultValue[0]);
        auto range = [&](const Attribute::Range& r) {
            return r.set ? std::optional<double>(toUiUnits(a, r.value[0])) : std::nullopt;
        };
        declaration.minimum = range(a.min);
        declaration.maximum = range(a.max);
        declaration.softMinimum = range(a.softMin);
        declaration.softMaximum = range(a.softMax);
    }
    if (a.kind == Attribute::Kind::Enum) {
        int next = 0;
        for (const auto& [name, value] : a.fields) {
            declaration.enumNames += (declaration.enumNames.empty() ? "" : ":") + name.asStdString();
            if (value != next)
                declaration.enumNames += "=" + std::to_string(value);
            next = value + 1;
        }
    }
    if (a.parent)
        declaration.parent = a.parent->longName.asStdString();
    declaration.keyable = a.flags.keyable;
    declaration.multi = a.flags.array;
    declaration.hidden = a.flags.hidden;
    declaration.usedAsColor = a.flags.usedAsColor;
    return declaration;
}

std::string addAttrFlags(const AttributeDeclaration& declaration) {
    std::string out;
    auto text = [&](const char* flag, const std::string& value) {
        out += std::string(" -") + flag + " ";
        appendQuoted(out, value);
    };
    auto number = [&](const char* flag, const std::optional<double>& value) {
        if (!value)
            return;
        out += std::string(" -") + flag;
        appendNumber(out, *value);
    };
    text("ln", declaration.longName);
    if (!declaration.shortName.empty())
        text("sn", declaration.shortName);
    if (!declaration.dataType.empty())
        text("dt", declaration.dataType);
    else
        text("at", declaration.attributeType);
    if (!declaration.enumNames.empty())
        text("en", declaration.enumNames);
    if (declaration.childCount)
        out += " -nc " + std::to_string(*declaration.childCount);
    number("dv", declaration.defaultValue);
    number("min", declaration.minimum);
    number("max", declaration.maximum);
    number("smn", declaration.softMinimum);
    number("smx", declaration.softMaximum);
    if (declaration.keyable)
        out += " -k true";
    if (declaration.hidden)
        out += " -h true";
    if (declaration.multi)
        out += " -m";
    if (declaration.usedAsColor)
        out += " -uac";
    if (!declaration.parent.empty())
        text("p", declaration.parent);
    return out;
}

} // namespace oz::scene
