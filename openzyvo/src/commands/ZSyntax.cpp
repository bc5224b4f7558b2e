#include "commands/ArgListData.h"
#include "commands/SyntaxData.h"

#include <OpenZyvo/ZSyntax.h>

namespace oz::cmd {

const char* describe(ZSyntax::ZArgType type) {
    switch (type) {
    case ZSyntax::kBoolean:
        return "a boolean";
    case ZSyntax::kLong:
        return "an integer";
    case ZSyntax::kUnsigned:
        return "a non-negative integer";
    case ZSyntax::kDouble:
    case ZSyntax::kDistance:
    case ZSyntax::kAngle:
    case ZSyntax::kTime:
        return "a number";
    case ZSyntax::kString:
        return "a string";
    case ZSyntax::kSelectionItem:
        return "an object name";
    default:
        return "nothing";
    }
}

} // namespace oz::cmd

namespace {

bool isReserved(const oz::cmd::SyntaxData& data, const std::string& name) {
    return (data.query && (name == "q" || name == "query")) || (data.edit && (name == "e" || name == "edit"));
}

bool validType(ZSyntax::ZArgType type) {
    return type > ZSyntax::kNoArg && type < ZSyntax::kLastArgType;
}

oz::cmd::FlagSpec* findFlag(oz::cmd::SyntaxData& data, const char* flag) {
    const std::string name = oz::cmd::flagName(flag);
    for (oz::cmd::FlagSpec& definition : data.flags)
        if (definition.matches(name))
            return &definition;
    return nullptr;
}

} // namespace

ZSyntax::ZSyntax()
    : m_data(std::make_shared<oz::cmd::SyntaxData>()) {}

ZStatus ZSyntax::addFlag(const char* shortName, const char* longName, ZArgType arg1, ZArgType arg2,
                         ZArgType arg3, ZArgType arg4, ZArgType arg5, ZArgType arg6) {
    if (!shortName || !longName || shortName[0] != '-' || longName[0] != '-' || !shortName[1] || !longName[1])
        return ZStatus::kInvalidParameter;
    oz::cmd::FlagSpec definition;
    definition.shortName = shortName + 1;
    definition.longName = longName + 1;
    if (m_data->find(definition.shortName) || m_data->find(definition.longName) ||
        isReserved(*m_data, definition.shortName) || isReserved(*m_data, definition.longName))
        return ZStatus::kInvalidParameter;
    for (ZArgType type : {arg1, arg2, arg3, arg4, arg5, arg6}) {
        if (type == kNoArg)
            break;
        if (!validType(type))
            return ZStatus::kInvalidParameter;
        definition.argTypes.push_back(type);
    }
    m_data->flags.push_back(std::move(definition));
    return ZStatus::kSuccess;
}

ZStatus ZSyntax::makeFlagMultiUse(const char* flag) {
    oz::cmd::FlagSpec* definition = findFlag(*m_data, flag);
    if (!definition)
        return ZStatus::kInvalidParameter;
    definition->multiUse = true;
    return ZStatus::kSuccess;
}

ZStatus ZSyntax::makeFlagQueryWithFullArgs(const char* flag, bool optional) {
    oz::cmd::FlagSpec* definition = findFlag(*m_data, flag);
    if (!definition)
        return ZStatus::kInvalidParameter;
    definition->queryWithArgs = true;
    definition->queryArgsOptional = optional;
    return ZStatus::kSuccess;
}

ZStatus ZSyntax::addArg(ZArgType type) {
    if (!validType(type))
        return ZStatus::kInvalidParameter;
    m_data->commandArgs.push_back(type);
    return ZStatus::kSuccess;
}

ZStatus ZSyntax::setObjectType(ZObjectFormat format, unsigned int minimum, unsigned int maximum) {
    if (format <= kInvalidObjectFormat || format >= kLastObjectFormat || minimum > maximum)
        return ZStatus::kInvalidParameter;
    m_data->objectFormat = format;
    m_data->minObjects = minimum;
    m_data->maxObjects = maximum;
    return ZStatus::kSuccess;
}

ZStatus ZSyntax::setMinObjects(unsigned int minimum) {
    if (minimum > m_data->maxObjects)
        return ZStatus::kInvalidParameter;
    m_data->minObjects = minimum;
    return ZStatus::kSuccess;
}

ZStatus ZSyntax::setMaxObjects(unsigned int maximum) {
    if (maximum < m_data->minObjects)
        return ZStatus::kInvalidParameter;
    m_data->maxObjects = maximum;
    return ZStatus::kSuccess;
}

void ZSyntax::useSelectionAsDefault(bool useSelection) {
    m_data->selectionAsDefault = useSelection;
}

void ZSyntax::enableQuery(bool enable) {
    m_data->query = enable;
}

void ZSyntax::enableEdit(bool enable) {
    m_data->edit = enable;
}

bool ZSyntax::canQuery() const {
    return m_data->query;
}

bool ZSyntax::canEdit() const {
    return m_data->edit;
}
