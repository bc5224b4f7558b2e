#pragma once

#include "commands/CommandTest.h"

#include <OpenZyvo/ZGlobal.h>
#include <string>

// Runs Python and expects it to succeed; returns the value of an expression.
class PythonTest : public CommandTest {
protected:
    static std::string python(const std::string& code) {
        ZString result;
        const ZStatus status = ZGlobal::executePythonCommand(ZString(code), result);
        EXPECT_TRUE(status) << code << "\n" << (errors().empty() ? "" : errors().back());
        return result.asStdString();
    }
};
