#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZDoubleArray.h>
#include <OpenZyvo/ZIntArray.h>
#include <OpenZyvo/ZStatus.h>
#include <OpenZyvo/ZString.h>
#include <OpenZyvo/ZStringArray.h>
#include <memory>

namespace oz::cmd {
struct ArgListAccess;
struct ArgListData;
} // namespace oz::cmd

// The arguments a command was called with, in the order they were written:
// flags ("-name") and values (booleans, numbers, strings and arrays of them).
// A string value that happens to start with a dash is still a value, never a
// flag. Commands normally read their arguments through ZArgDatabase.
class OZ_API ZArgList {
public:
    static constexpr unsigned int kInvalidArgIndex = 0xFFFFFFFFu;

    ZArgList();
    ZArgList(const ZArgList& other);
    ZArgList& operator=(const ZArgList& other);
    ~ZArgList();

    unsigned int length(ZStatus* status = nullptr) const;

    // True when the argument at `index` is a flag.
    bool isFlag(unsigned int index, ZStatus* status = nullptr) const;
    // The index of the first use of a flag given by its short or long name
    // (with or without the dash), or kInvalidArgIndex.
    unsigned int flagIndex(const char* shortFlag, const char* longFlag = nullptr) const;

    // Reading a value fails with kInvalidParameter when it has another type;
    // a flag reads as its name with the dash.
    bool asBool(unsigned int index, ZStatus* status = nullptr) const;
    int asInt(unsigned int index, ZStatus* status = nullptr) const;
    double asDouble(unsigned int index, ZStatus* status = nullptr) const;
    ZString asString(unsigned int index, ZStatus* status = nullptr) const;
    // The array forms read the value at `index` and move `index` past it.
    ZIntArray asIntArray(unsigned int& index, ZStatus* status = nullptr) const;
    ZDoubleArray asDoubleArray(unsigned int& index, ZStatus* status = nullptr) const;
    ZStringArray asStringArray(unsigned int& index, ZStatus* status = nullptr) const;

    ZStatus addArg(bool value);
    ZStatus addArg(int value);
    ZStatus addArg(double value);
    ZStatus addArg(const ZString& value);
    ZStatus addArg(const char* value);
    ZStatus addArg(const ZIntArray& values);
    ZStatus addArg(const ZDoubleArray& values);
    ZStatus addArg(const ZStringArray& values);
    // Adds a flag given with or without its dash.
    ZStatus addFlag(const ZString& name);

private:
    friend struct oz::cmd::ArgListAccess;
    std::unique_ptr<oz::cmd::ArgListData> m_data;
};
