#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZDoubleArray.h>
#include <OpenZyvo/ZIntArray.h>
#include <OpenZyvo/ZStatus.h>
#include <OpenZyvo/ZString.h>
#include <OpenZyvo/ZStringArray.h>
#include <memory>

namespace oz::cmd {
struct CommandResultAccess;
struct CommandResultData;
} // namespace oz::cmd

// The result of a command run through ZGlobal::executeCommand. Booleans read
// as ints, as the host reports them.
class OZ_API ZCommandResult {
public:
    enum Type {
        kInvalid, // no result
        kInt,
        kDouble,
        kString,
        kIntArray,
        kDoubleArray,
        kStringArray,
    };

    ZCommandResult();
    ZCommandResult(const ZCommandResult& other);
    ZCommandResult& operator=(const ZCommandResult& other);
    ~ZCommandResult();

    Type resultType(ZStatus* status = nullptr) const;
    // A getter fails with kInvalidParameter when the result has another type;
    // numbers convert among themselves only when nothing is lost.
    ZStatus getResult(int& result) const;
    ZStatus getResult(double& result) const;
    ZStatus getResult(ZString& result) const;
    ZStatus getResult(ZIntArray& result) const;
    ZStatus getResult(ZDoubleArray& result) const;
    ZStatus getResult(ZStringArray& result) const;
    // The result as the message log shows it.
    ZString stringResult() const;

private:
    friend struct oz::cmd::CommandResultAccess;
    std::unique_ptr<oz::cmd::CommandResultData> m_data;
};
