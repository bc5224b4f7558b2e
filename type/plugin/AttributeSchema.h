#pragma once

#include "plugin/ApiError.h"

#include <OpenZyvo/ZFnData.h>
#include <OpenZyvo/ZFnNumericData.h>
#include <OpenZyvo/ZFnUnitAttribute.h>
#include <OpenZyvo/ZObject.h>
#include <OpenZyvo/ZStatus.h>
#include <initializer_list>
#include <optional>
#include <span>
#include <utility>

namespace type {

// Short names of attributes equal their long names unless given.
struct AttributeNames {
    AttributeNames(const char* both)
        : longName(both)
        , shortName(both) {}
    AttributeNames(const char* longName, const char* shortName)
        : longName(longName)
        , shortName(shortName) {}
    const char* longName;
    const char* shortName;
};

// Only the flags a node sets itself; the rest keep the host's defaults.
// (The explicit empty initialisers let designated initialisers name
// only the flags they set.)
struct AttributeFlags {
    std::optional<bool> readable = std::nullopt;
    std::optional<bool> writable = std::nullopt;
    std::optional<bool> storable = std::nullopt;
    std::optional<bool> keyable = std::nullopt;
    std::optional<bool> hidden = std::nullopt;
    std::optional<bool> array = std::nullopt;
};

struct AttributeRange {
    std::optional<double> min = std::nullopt;
    std::optional<double> max = std::nullopt;
    std::optional<double> softMin = std::nullopt;
    std::optional<double> softMax = std::nullopt;
};

// Builds a node type's attributes inside its initialiser. Every host call
// that fails is reported in the shared error style at the line of the
// initialiser that asked for it; after the first failure the remaining calls
// do nothing, so an initialiser reads as the list of its attributes and ends
// with `return schema.status();`.
class AttributeSchema {
public:
    using Where = SourceLine;

    using Names = AttributeNames;
    using Flags = AttributeFlags;
    using Range = AttributeRange;

    explicit AttributeSchema(const char* sourceUnit)
        : m_unit(sourceUnit) {}

    // Arrays and strings start as empty data (strings as `defaultText`), so a
    // fresh node reads an empty value rather than null; meshes start null.
    ZObject typed(const Names& names, ZFnData::Type type, const Flags& flags = {},
                  const char* defaultText = "", Where where = Where::current());
    ZObject numeric(const Names& names, ZFnNumericData::Type kind, double defaultValue,
                    const Flags& flags = {}, const Range& range = {}, Where where = Where::current());
    // Pairs and triples of numbers (2 int, 3 double...), as compounds of
    // numeric children.
    ZObject numeric(const Names& names, ZFnNumericData::Type kind, std::initializer_list<double> defaults,
                    const Flags& flags = {}, Where where = Where::current());
    ZObject unit(const Names& names, ZFnUnitAttribute::Type type, double defaultValue,
                 const Flags& flags = {}, Where where = Where::current());
    ZObject enumeration(const Names& names, short defaultValue,
                        std::initializer_list<std::pair<const char*, short>> fields, const Flags& flags = {},
                        Where where = Where::current());
    // Fields kept in a table beside the values they name.
    ZObject enumeration(const Names& names, short defaultValue,
                        std::span<const std::pair<const char*, short>> fields, const Flags& flags = {},
                        Where where = Where::current());
    ZObject message(const Names& names, const Flags& flags = {}, Where where = Where::current());
    // A profile curve (ZCurveAttribute), without points.
    ZObject curve(const Names& names, Where where = Where::current());
    ZObject compound(const Names& names, std::initializer_list<ZObject> children, const Flags& flags = {},
                     Where where = Where::current());

    // Adds a top-level attribute (children come with their compound).
    void add(const ZObject& attribute, Where where = Where::current());
    // Every input affects every output.
    void affects(std::initializer_list<ZObject> inputs, std::initializer_list<ZObject> outputs,
                 Where where = Where::current());

    // Success, or the first failure.
    ZStatus status() const { return m_status; }

private:
    ZObject finish(const ZObject& attribute, ZStatus status, const Flags& flags, Where where);
    bool failed(ZStatus status, Where where);

    const char* m_unit;
    ZStatus m_status;
};

} // namespace type
