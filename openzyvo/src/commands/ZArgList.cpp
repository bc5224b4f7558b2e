#include "commands/ArgListData.h"
#include "core/StatusOut.h"

#include <OpenZyvo/ZArgList.h>

using oz::setStatus;
using oz::cmd::ArgItem;
using oz::cmd::Value;

namespace {

const ArgItem* itemAt(const oz::cmd::ArgListData& data, unsigned int index, ZStatus* status) {
    if (index >= data.items.size()) {
        setStatus(status, ZStatus::kInvalidParameter);
        return nullptr;
    }
    setStatus(status, ZStatus::kSuccess);
    return &data.items[index];
}

// Built in place: GCC 12 misreads a braced ArgItem temporary as maybe uninitialised.
void append(oz::cmd::ArgListData& data, Value value) {
    data.items.emplace_back().value = std::move(value);
}

Value readable(const ArgItem& item) {
    return item.isFlag ? Value("-" + std::get<std::string>(item.value)) : item.value;
}

template <typename T, typename Convert>
T read(const oz::cmd::ArgListData& data, unsigned int index, ZStatus* status, Convert convert) {
    const ArgItem* item = itemAt(data, index, status);
    if (!item)
        return T();
    const auto converted = convert(readable(*item));
    if (!converted) {
        setStatus(status, ZStatus::kInvalidParameter);
        return T();
    }
    return *converted;
}

template <typename Array, typename Convert>
Array readArray(const oz::cmd::ArgListData& data, unsigned int& index, ZStatus* status, Convert convert) {
    const ArgItem* item = itemAt(data, index, status);
    if (!item)
        return Array();
    const auto converted = convert(readable(*item));
    if (!converted) {
        setStatus(status, ZStatus::kInvalidParameter);
        return Array();
    }
    ++index;
    Array out;
    for (const auto& element : *converted)
        out.append(element);
    return out;
}

} // namespace

ZArgList::ZArgList()
    : m_data(std::make_unique<oz::cmd::ArgListData>()) {}

ZArgList::ZArgList(const ZArgList& other)
    : m_data(std::make_unique<oz::cmd::ArgListData>(*other.m_data)) {}

ZArgList& ZArgList::operator=(const ZArgList& other) {
    *m_data = *other.m_data;
    return *this;
}

ZArgList::~ZArgList() = default;

unsigned int ZArgList::length(ZStatus* status) const {
    setStatus(status, ZStatus::kSuccess);
    return static_cast<unsigned int>(m_data->items.size());
}

bool ZArgList::isFlag(unsigned int index, ZStatus* status) const {
    const ArgItem* item = itemAt(*m_data, index, status);
    return item && item->isFlag;
}

unsigned int ZArgList::flagIndex(const char* shortFlag, const char* longFlag) const {
    const std::string shortName = oz::cmd::flagName(shortFlag);
    const std::string longName = oz::cmd::flagName(longFlag);
    for (unsigned int i = 0; i < m_data->items.size(); ++i) {
        const ArgItem& item = m_data->items[i];
        if (!item.isFlag)
            continue;
        const auto& name = std::get<std::string>(item.value);
        if ((!shortName.empty() && name == shortName) || (!longName.empty() && name == longName))
            return i;
    }
    return kInvalidArgIndex;
}

bool ZArgList::asBool(unsigned int index, ZStatus* status) const {
    return read<bool>(*m_data, index, status, [](const Value& v) { return oz::cmd::toBool(v); });
}

int ZArgList::asInt(unsigned int index, ZStatus* status) const {
    return read<int>(*m_data, index, status, [](const Value& v) { return oz::cmd::toInt(v); });
}

double ZArgList::asDouble(unsigned int index, ZStatus* status) const {
    return read<double>(*m_data, index, status, [](const Value& v) { return oz::cmd::toDouble(v); });
}

ZString ZArgList::asString(unsigned int index, ZStatus* status) const {
    return ZString(
        read<std::string>(*m_data, index, status, [](const Value& v) { return oz::cmd::toString(v); }));
}

ZIntArray ZArgList::asIntArray(unsigned int& index, ZStatus* status) const {
    return readArray<ZIntArray>(*m_data, index, status,
                                [](const Value& v) { return oz::cmd::toIntArray(v); });
}

ZDoubleArray ZArgList::asDoubleArray(unsigned int& index, ZStatus* status) const {
    return readArray<ZDoubleArray>(*m_data, index, status,
                                   [](const Value& v) { return oz::cmd::toDoubleArray(v); });
}

ZStringArray ZArgList::asStringArray(unsigned int& index, ZStatus* status) const {
    return readArray<ZStringArray>(*m_data, index, status,
                                   [](const Value& v) { return oz::cmd::toStringArray(v); });
}

ZStatus ZArgList::addArg(bool value) {
    append(*m_data, Value(value));
    return ZStatus::kSuccess;
}

ZStatus ZArgList::addArg(int value) {
    append(*m_data, Value(value));
    return ZStatus::kSuccess;
}

ZStatus ZArgList::addArg(double value) {
    append(*m_data, Value(value));
    return ZStatus::kSuccess;
}

ZStatus ZArgList::addArg(const ZString& value) {
    append(*m_data, Value(value.asStdString()));
    return ZStatus::kSuccess;
}

ZStatus ZArgList::addArg(const char* value) {
    return addArg(ZString(value));
}

ZStatus ZArgList::addArg(const ZIntArray& values) {
    append(*m_data, Value(values.asVector()));
    return ZStatus::kSuccess;
}

ZStatus ZArgList::addArg(const ZDoubleArray& values) {
    append(*m_data, Value(values.asVector()));
    return ZStatus::kSuccess;
}

ZStatus ZArgList::addArg(const ZStringArray& values) {
    std::vector<std::string> texts;
    for (const ZString& value : values)
        texts.push_back(value.asStdString());
    append(*m_data, Value(std::move(texts)));
    return ZStatus::kSuccess;
}

ZStatus ZArgList::addFlag(const ZString& name) {
    const std::string bare = oz::cmd::flagName(name.asChar());
    if (bare.empty())
        return ZStatus::kInvalidParameter;
    m_data->items.push_back(ArgItem::flag(bare));
    return ZStatus::kSuccess;
}
