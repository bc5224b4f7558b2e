#include "NodeSchema.h"

#include "EnumFields.h"
#include "Host.h"
#include "NumberOption.h"

#include <OpenZyvo/ZDoubleArray.h>
#include <OpenZyvo/ZGlobal.h>
#include <OpenZyvo/ZStringArray.h>

namespace zyvo {

template <typename Result>
ZStatus NodeSchema::ask(const char* query, const char* attribute, Result& result) const {
    return ZGlobal::executeCommand(
        ZString("attributeQuery -type " + m_nodeType + " " + query + " " + attribute), result);
}

ZStatus NodeSchema::enumValue(const char* attribute, const std::string& name, const char* option, Host& host,
                              std::optional<short>& value) const {
    ZStringArray listed;
    if (const ZStatus status = ask("-listEnum", attribute, listed); !status)
        return status;
    const auto fields = listed.length() == 1 ? parseEnumFields(listed[0].asStdString()) : std::nullopt;
    if (!fields) {
        ZGlobal::displayError(
            ZString("The " + m_nodeType + " node's " + attribute + " fields cannot be read"));
        return ZStatus::kFailure;
    }
    const EnumField* field = findField(*fields, name);
    if (!field) {
        host.refuseOption(option, "expected " + fieldChoices(*fields) + ", got " + name);
        return ZStatus::kInvalidParameter;
    }
    value = field->value;
    return ZStatus::kSuccess;
}

ZStatus NodeSchema::checkWholeNumber(const char* attribute, int number, const char* option, Host& host,
                                     std::optional<long> ceiling) const {
    ZDoubleArray min;
    ZDoubleArray max;
    int hasMax = 0;
    ZStatus status = ask("-minimum", attribute, min);
    if (status)
        status = ask("-maxExists", attribute, hasMax);
    if (status && hasMax)
        status = ask("-maximum", attribute, max);
    if (!status || min.length() != 1 || (hasMax ? max.length() != 1 : !ceiling)) {
        ZGlobal::displayError(
            ZString("The " + m_nodeType + " node's bounds of " + attribute + " cannot be read"));
        return status ? ZStatus::kFailure : status;
    }
    const long lowest = static_cast<long>(min[0]);
    const long highest = hasMax ? static_cast<long>(max[0]) : *ceiling;
    if (number < lowest || number > highest) {
        host.refuseOption(option, wholeNumberRefusal(lowest, highest, std::to_string(number)));
        return ZStatus::kInvalidParameter;
    }
    return ZStatus::kSuccess;
}

} // namespace zyvo
