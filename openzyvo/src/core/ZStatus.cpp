#include <OpenZyvo/ZStatus.h>
#include <OpenZyvo/ZString.h>
#include <cstdio>

ZString ZStatus::errorString() const {
    switch (m_code) {
    case kSuccess:
        return "Success";
    case kFailure:
        return "Unexpected internal failure";
    case kInsufficientMemory:
        return "Insufficient memory";
    case kInvalidParameter:
        return "Invalid parameter passed";
    case kUnknownParameter:
        return "Unknown parameter";
    case kNotImplemented:
        return "Not implemented";
    case kNotFound:
        return "Object not found";
    case kEndOfFile:
        return "End of file";
    }
    return "Unknown status";
}

void ZStatus::perror(const ZString& text) const {
    if (text.isEmpty())
        std::fprintf(stderr, "%s\n", errorString().asChar());
    else
        std::fprintf(stderr, "%s: %s\n", text.asChar(), errorString().asChar());
    std::fflush(stderr);
}

void ZStatus::perror(const char* text) const {
    perror(ZString(text));
}
