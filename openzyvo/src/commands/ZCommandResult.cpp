#include "commands/CommandResultData.h"
#include "core/StatusOut.h"

#include <OpenZyvo/ZCommandResult.h>

using oz::cmd::Value;

namespace {

template <typename Array, typename Items> Array arrayOf(const Items& items) {
    Array out;
    for (const auto& item : items)
        out.append(item);
    return out;
}

template <typename Target, typename Convert>
ZStatus read(const Value& value, Target& result, Convert convert) {
    const auto converted = convert(value);
    if (oz::cmd::isEmpty(value) || !converted)
        return ZStatus::kInvalidParameter;
    result = Target(*converted);
    return ZStatus::kSuccess;
}

} // namespace

ZCommandResult::ZCommandResult()
    : m_data(std::make_unique<oz::cmd::CommandResultData>()) {}

ZCommandResult::ZCommandResult(const ZCommandResult& other)
    : m_data(std::make_unique<oz::cmd::CommandResultData>(*other.m_data)) {}

ZCommandResult& ZCommandResult::operator=(const ZCommandResult& other) {
    *m_data = *other.m_data;
    return *this;
}

ZCommandResult::~ZCommandResult() = default;

ZCommandResult::Type ZCommandResult::resultType(ZStatus* status) const {
    oz::setStatus(status, ZStatus::kSuccess);
    const Value& value = m_data->value;
    if (std::holds_alternative<bool>(value) || std::holds_alternative<int>(value))
        return kInt;
    if (std::holds_alternative<double>(value))
        return kDouble;
    if (std::holds_alternative<std::string>(value))
        return kString;
    if (std::holds_alternative<std::vector<int>>(value))
        return kIntArray;
    if (std::holds_alternative<std::vector<double>>(value))
        return kDoubleArray;
    if (std::holds_alternative<std::vector<std::string>>(value))
        return kStringArray;
    return kInvalid;
}

ZStatus ZCommandResult::getResult(int& result) const {
    return read(m_data->value, result, oz::cmd::toInt);
}

ZStatus ZCommandResult::getResult(double& result) const {
    return read(m_data->value, result, oz::cmd::toDouble);
}

ZStatus ZCommandResult::getResult(ZString& result) const {
    return read(m_data->value, result, oz::cmd::toString);
}

ZStatus ZCommandResult::getResult(ZIntArray& result) const {
    const auto items = oz::cmd::toIntArray(m_data->value);
    if (oz::cmd::isEmpty(m_data->value) || !items)
        return ZStatus::kInvalidParameter;
    result = arrayOf<ZIntArray>(*items);
    return ZStatus::kSuccess;
}

ZStatus ZCommandResult::getResult(ZDoubleArray& result) const {
    const auto items = oz::cmd::toDoubleArray(m_data->value);
    if (oz::cmd::isEmpty(m_data->value) || !items)
        return ZStatus::kInvalidParameter;
    result = arrayOf<ZDoubleArray>(*items);
    return ZStatus::kSuccess;
}

ZStatus ZCommandResult::getResult(ZStringArray& result) const {
    const auto items = oz::cmd::toStringArray(m_data->value);
    if (oz::cmd::isEmpty(m_data->value) || !items)
        return ZStatus::kInvalidParameter;
    result = ZStringArray();
    for (const std::string& item : *items)
        result.append(ZString(item));
    return ZStatus::kSuccess;
}

ZString ZCommandResult::stringResult() const {
    return ZString(oz::cmd::toText(m_data->value));
}
